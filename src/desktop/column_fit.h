#pragma once

class QTableView;

namespace desk {
class Grid;
}

namespace desk::desktop {

/// Gives the width that the columns of `grid` leave free in `view` to its texts, and to each column that is
/// shown the room of a number of four digits, until a person drags a column to another width.
void fitColumns(QTableView* view, Grid& grid);

}  // namespace desk::desktop
