#pragma once

#include <QAbstractItemView>

namespace desk::desktop {

/// Keeps from the view what is no click of the left button: a right click, and a press that is dragged on,
/// mark nothing.
void clickByLeftButtonOnly(QAbstractItemView* view);

/// Where nothing is marked, nothing is current: the focus alone goes to no line, and the first arrow key to
/// the first one. For the view's focusInEvent.
void goNowhereByFocus(QAbstractItemView* view);

}  // namespace desk::desktop
