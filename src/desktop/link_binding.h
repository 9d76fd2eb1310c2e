#pragma once

#include <QWidget>

#include "ui/link.h"

namespace desk::desktop {

QWidget* linkWidget(Link& link);

}  // namespace desk::desktop
