#pragma once

#include <QWidget>

#include "ui/fields.h"

namespace desk::desktop {

/// A line, a password or a paragraph, as the box says.
QWidget* textBoxWidget(TextBox& box);

}  // namespace desk::desktop
