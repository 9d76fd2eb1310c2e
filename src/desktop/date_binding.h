#pragma once

#include <QWidget>

#include "ui/fields.h"

namespace desk::desktop {

QWidget* dateWidget(DatePicker& picker);

}  // namespace desk::desktop
