#pragma once

#include <QString>

class QWidget;

namespace desk::tax {

/// Says what went wrong in a box, and does not wait until it is answered.
void complain(QWidget* parent, const QString& text);

}  // namespace desk::tax
