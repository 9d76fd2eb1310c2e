#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clipboard.h"
#include "platform/keyboard.h"
#include "platform/pointer.h"
#include "platform/programs.h"

namespace desk {

/// What a program did to the desktop around it, in order and in words: "activate 标题", "send {F2}",
/// "pointer 25 25", "mouse 0 90 0", "clipboard clear", …
class MachineJournal {
  public:
    std::vector<std::string> lines;
    /// Called with each line before what it tells takes effect: here a test lets the other program react
    /// (fill the clipboard, bring a window), lets the call fail by throwing, or takes the screen away.
    std::function<void(const std::string& line)> hook = [](const std::string&) {};
    /// Told of each line, for whoever writes along.
    std::function<void(const std::string& line)> note = [](const std::string&) {};

    void add(const std::string& line);
    /// All lines so far, which are forgotten.
    std::vector<std::string> take();
};

/// A window is there when its title is in `windows`.
class RecordingPrograms : public Programs {
  public:
    explicit RecordingPrograms(MachineJournal& journal) : journal_(journal) {}

    std::vector<std::string> windows;
    bool canOpen = true;                        ///< whether a program is there for files
    bool canStart = true;                       ///< whether programs can be started
    std::map<std::string, std::string> brings;  ///< the window that a program brings as it starts
    std::set<std::int64_t> running;             ///< of those that were started minimised: 1, 2, …

    bool hasWindow(std::string_view title) override;
    void activate(std::string_view title) override;
    bool start(const std::string& program, const std::vector<std::string>& arguments) override;
    std::int64_t startMinimised(const std::string& program) override;
    bool isRunning(std::int64_t process) override;
    bool openForUser(const std::string& what) override;

  private:
    bool isThere(std::string_view title) const;

    MachineJournal& journal_;
    std::int64_t startedSoFar_ = 0;
};

/// Refuses wrong key strings, of which it then notes nothing.
class RecordingKeyboard : public Keyboard {
  public:
    explicit RecordingKeyboard(MachineJournal& journal) : journal_(journal) {}

    std::string refused;  ///< why nobody can type

    std::string refusal() override { return refused; }
    void send(std::string_view keyString) override;

  private:
    MachineJournal& journal_;
};

class RecordingPointer : public Pointer {
  public:
    explicit RecordingPointer(MachineJournal& journal) : journal_(journal) {}
    void moveTo(std::int32_t x, std::int32_t y) override;
    void event(std::uint32_t flags, std::int32_t dx, std::int32_t dy) override;

  private:
    MachineJournal& journal_;
};

/// Holds `held`.
class RecordingClipboard : public Clipboard {
  public:
    explicit RecordingClipboard(MachineJournal& journal) : journal_(journal) {}

    std::string held;

    void clear() override;
    std::string text() override;

  private:
    MachineJournal& journal_;
};

}  // namespace desk
