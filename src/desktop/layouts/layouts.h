#pragma once

#include <QWidget>

#include "ui/screen.h"

namespace desk::desktop {

/// The content of the screen's window. A screen without a layout of its own fails with std::logic_error.
QWidget* layoutOf(Screen& screen);

}  // namespace desk::desktop
