#pragma once

#include "desktop/late_spreadsheets.h"
#include "desktop/qt_clipboard.h"
#include "desktop/qt_desktop.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/settings.h"
#include "platform/x11/x11_keyboard.h"
#include "platform/x11/x11_pointer.h"
#include "platform/x11/x11_programs.h"
#include "session/application.h"

namespace desk::desktop {

/// Looks and language of the program; to be called once the QApplication is there.
void dress();

/// The whole program on this machine, with all its screens. A QApplication must live longer.
struct Program {
    Program();

    SystemClock clock;
    IniSettings settings{IniSettings::userFolder()};
    SystemFiles files;
    X11Programs programs;
    LateSpreadsheets spreadsheets;
    X11Keyboard keyboard;
    X11Pointer pointer;
    QtClipboard clipboard;
    QtDesktop desktop;
    Application app;
};

}  // namespace desk::desktop
