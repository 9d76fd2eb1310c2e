#pragma once

#include <QWidget>

#include "ui/scroll_bar.h"

namespace desk::desktop {

QWidget* scrollBarWidget(ScrollBar& bar);

}  // namespace desk::desktop
