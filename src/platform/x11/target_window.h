#pragma once

#include <X11/Xlib.h>

#include <chrono>

#include "platform/x11/server.h"

namespace desk::x11 {

/// The window of a program that has the keyboard at the time when this is made.
class TargetWindow {
  public:
    explicit TargetWindow(Server& server);

    /// Whether it still has the keyboard. Its own parts may pass it to each other.
    bool hasKeyboard();
    /// Whether it is one of this program's own, which does nothing while this program is busy.
    bool isOwn();
    /// Whether its program tells when it has dealt with all that the server told it.
    bool tells() const { return tells_; }
    /// Waits until it has; false when `patience` ran out. A program that does not tell is given a while.
    bool catchUp(std::chrono::milliseconds patience);

  private:
    Server& server_;
    Window focus_;
    Window topLevel_;
    bool tells_;
};

}  // namespace desk::x11
