#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/date.h"
#include "ui/colour.h"

namespace desk {

class Screen;
struct Picture;

enum class Buttons { ok, yesNo };
enum class Icon { none, information, question, warning };
enum class Answer { ok, yes, no };

struct Message {
    std::string text;
    std::string title;  ///< empty: the program's name
    Icon icon = Icon::none;
    Buttons buttons = Buttons::ok;
    Answer preferred = Answer::yes;  ///< of yes and no, the one that Enter gives
};

/// What a file is asked for: one that is there, or a place to write to, where one may be there already.
enum class FilePurpose { open, save };

/// A file that a person is asked for.
struct FileQuestion {
    std::string directory;
    std::string filter;  ///< "words|pattern|words|pattern"
    FilePurpose purpose = FilePurpose::open;
    std::string proposal;  ///< the name that stands there at first
};

/// Whether a person may stop long work before its end.
enum class Stopping { impossible, possible };

/// Thrown by endProcess() where the process does not really end, as under tests.
struct ProcessEnded {};

/// All that a screen asks of the toolkit that shows it.
class Desktop {
  public:
    virtual ~Desktop() = default;

    /// Shows the screen's window without waiting; nothing if it is shown already.
    virtual void show(Screen& screen) = 0;
    /// Shows the screen's window and returns when the screen has been unloaded. Fails with 400 if it is shown
    /// already.
    virtual void showModally(Screen& screen) = 0;
    virtual void bringToFront(Screen& screen) = 0;
    /// Takes the window away; the screen is about to go.
    virtual void close(Screen& screen) = 0;
    /// Destroys the windows that were taken away; no handler runs.
    virtual void dropClosed() {}

    virtual Answer messageBox(const Message& message) = 0;
    /// Nothing when the person cancels.
    virtual std::optional<Colour> chooseColour(Colour present) = 0;
    /// Nothing when the person cancels.
    virtual std::optional<std::string> chooseFile(const FileQuestion& question) = 0;

    /// In the font of the screen, in twips.
    virtual double textWidth(const Screen& screen, std::string_view text) = 0;
    /// A day in the short format of the user's system.
    virtual std::string shortDate(const DateTime& day) = 0;
    /// Nothing when the file is missing or is no picture.
    virtual std::optional<Picture> loadPicture(std::string_view path) = 0;

    /// The hourglass, from now until it is set to false.
    virtual void setBusy(bool busy) = 0;
    /// Tells in passing that something is done, for some seconds and without a box to answer.
    virtual void notify(std::string_view text) = 0;
    /// Long work has done `done` of `total`; a total of 0 takes the display away. Events may run meanwhile.
    /// False when the person has asked it to stop, which is offered where that is possible.
    virtual bool showProgress(std::string_view what, long done, long total, Stopping stopping) = 0;
    virtual void letEventsRun() = 0;
    /// The same, and waits for one where there is none. The tick of a running timer is one.
    virtual void awaitEvents() = 0;

    /// Ends the process at once.
    [[noreturn]] virtual void endProcess() = 0;
};

/// Shows the hourglass while it lives.
class Hourglass {
  public:
    explicit Hourglass(Desktop& desktop) : desktop_(desktop) { desktop_.setBusy(true); }
    ~Hourglass() { desktop_.setBusy(false); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

  private:
    Desktop& desktop_;
};

/// Shows how far long work is, and takes the display away however it ends.
class Progress {
  public:
    explicit Progress(Desktop& desktop, Stopping stopping = Stopping::impossible)
        : desktop_(desktop), stopping_(stopping) {}
    ~Progress() { desktop_.showProgress({}, 0, 0, stopping_); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// `total` must not be 0. Whether the work is to go on.
    bool show(std::string_view what, long done, long total) {
        return desktop_.showProgress(what, done, total, stopping_);
    }

  private:
    Desktop& desktop_;
    Stopping stopping_;
};

}  // namespace desk
