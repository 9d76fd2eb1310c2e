#pragma once

#include <QPoint>
#include <QString>

class QWidget;

namespace desk::desktop {

/// Shows a text at that place of the screen while the pointer rests on the widget, broken into lines where it
/// is long. An empty one takes away what was shown.
void showTip(QPoint at, const QString& words, QWidget* of);

}  // namespace desk::desktop
