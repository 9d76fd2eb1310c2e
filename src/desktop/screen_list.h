#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "session/application.h"
#include "ui/screen.h"

namespace desk::desktop {

/// All that makes a screen known to the program.
struct KnownScreen {
    const char* name;
    std::unique_ptr<Screen> (*make)(Application& app);
    QWidget* (*layOut)(Screen& screen);  ///< null where no window is made of a layout
};

/// The screens of the program. A new one is one line there.
const std::vector<KnownScreen>& screenList();

/// Offers all of them.
void offerScreens(Application& app);

/// The content of the screen's window, Tab going through it as one reads it. A screen without a line or a
/// layout fails with std::logic_error.
QWidget* layoutOf(Screen& screen);

}  // namespace desk::desktop
