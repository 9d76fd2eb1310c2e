#pragma once

#include <string>

#include "platform/x11/server.h"

namespace desk::x11 {

/// Empties the clipboard, whoever holds it.
void clearClipboard();

/// Asks the program that holds the clipboard for its text, and does not wait for it.
class ClipboardReading {
  public:
    ClipboardReading();

    /// Becomes readable when there may be something to go on with; -1 without a server.
    int connection() const;
    /// Takes what has come in. True when that was all, or nothing can come any more.
    bool goOn();
    /// All text that has come in, in UTF-8.
    const std::string& text() const { return text_; }

  private:
    enum class Format { utf8, latin1, none };

    void ask(Format format);
    void take(const XEvent& event);
    void takeAnswer(const XSelectionEvent& answer);
    void takePiece();
    std::string property(Atom* type);

    Server server_;
    Window own_ = None;
    Window holder_ = None;
    Atom clipboard_ = None;
    Atom inPieces_ = None;
    Format format_ = Format::none;
    bool piecewise_ = false;
    bool finished_ = true;
    std::string text_;
};

}  // namespace desk::x11
