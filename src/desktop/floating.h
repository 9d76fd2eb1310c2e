#pragma once

#include <QWidget>

#include "ui/control.h"

namespace desk::desktop {

/// Where a floating control lies on the control that it is anchored to.
enum class FloatsAt {
    rightEdge,  ///< inside, as a button of a field
    beside,     ///< to its right, or its left where there is no room
    below,      ///< under it, as a list that drops down; without an anchor over the lower half
};

/// Lays `part`, which shows `control`, over `content`, beside the widget of the control's anchor. Where that
/// is a cell, it lies under the cell, or beside the grid as high as the cell's row.
void floatOver(QWidget* content, Control& control, QWidget* part, FloatsAt place);

}  // namespace desk::desktop
