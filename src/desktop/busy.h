#pragma once

#include <QApplication>

namespace desk::desktop {

/// The pointer is an hourglass while it lives: what a press does may have to wait for another seat.
class Busy {
  public:
    Busy() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Busy() { QApplication::restoreOverrideCursor(); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
};

/// While it lives a person is asked, in the midst of whatever is busy: the pointer is as it always is.
class Asking {
  public:
    Asking() {
        for (; QApplication::overrideCursor() != nullptr; ++busy_) QApplication::restoreOverrideCursor();
    }
    ~Asking() {
        for (; busy_ > 0; --busy_) QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

  private:
    int busy_ = 0;
};

}  // namespace desk::desktop
