#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "base/text.h"
#include "ui/desktop.h"
#include "ui/picture.h"
#include "ui/screens.h"

namespace desk {

/// A desktop without windows: it notes what a screen asks for, and answers from a script.
class ScriptedDesktop : public Desktop {
  public:
    /// What is shown when `showModally` is called; must end with the screen unloaded.
    std::function<void(Screen&)> modalPerson;
    /// Answers to Yes/No questions, in order. A question without an answer fails the test.
    std::deque<Answer> answers;
    std::deque<std::optional<Colour>> colours;
    std::deque<std::optional<std::string>> files;
    std::optional<Picture> pictureOnDisk;
    /// Asked at every report of long work: whether it goes on.
    std::function<bool(std::string_view what, long done, long total)> watcher = [](std::string_view, long,
                                                                                   long) { return true; };
    /// How wide a text is. Every character ten pixels: simple to reckon with.
    std::function<double(std::string_view)> measure = [](std::string_view text) {
        return 150.0 * static_cast<double>(characterCount(text));
    };

    /// Told at once of what screens ask for, in words.
    std::function<void(const std::string&)> note = [](const std::string&) {};

    /// What comes in whenever a screen lets events run, a box aside.
    std::function<void()> events = [] {};

    std::vector<Message> messages;            ///< all boxes so far
    std::vector<std::string> notices;         ///< all that was told in passing
    std::vector<FileQuestion> fileQuestions;  ///< all files asked for
    std::vector<std::string> shown;           ///< names of screens shown, in order
    std::vector<std::string> closed;          ///< names of windows taken away
    std::string inFront;                      ///< the name of what was brought to the front last
    int busyDepth = 0;
    bool showsProgress = false;
    Screens* screens = nullptr;

    /// The text of the last box, and forgets all boxes.
    std::string takeMessage();

    void show(Screen& screen) override;
    void showModally(Screen& screen) override;
    void bringToFront(Screen& screen) override;
    void close(Screen& screen) override;
    Answer messageBox(const Message& message) override;
    std::optional<Colour> chooseColour(Colour present) override;
    std::optional<std::string> chooseFile(const FileQuestion& question) override;
    double textWidth(const Screen& screen, std::string_view text) override;
    std::string shortDate(const DateTime& day) override;
    std::optional<Picture> loadPicture(std::string_view path) override;
    void setBusy(bool busy) override { busyDepth += busy ? 1 : -1; }
    void notify(std::string_view text) override;
    bool showProgress(std::string_view what, long done, long total, Stopping stopping) override;
    void letEventsRun() override { events(); }
    /// Each timer that runs ticks once.
    void awaitEvents() override;
    [[noreturn]] void endProcess() override { throw ProcessEnded(); }
};

}  // namespace desk
