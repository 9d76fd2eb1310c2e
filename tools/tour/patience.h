#pragma once

#include <QObject>
#include <QTimer>

namespace desk::tour {

/// Where the program's own waits are short and the machine is busy: holds the program up, its timers with it,
/// until the other programs of the display have done all that they were given to do. So a script that types
/// into one of them finds it as on an idle machine.
class Patience : public QObject {
  public:
    Patience();

    /// Returns when the display's server, its window manager and the program that prints invoices sleep, as
    /// far as they are there.
    static void untilOthersSleep();

  private:
    QTimer now_;
};

}  // namespace desk::tour
