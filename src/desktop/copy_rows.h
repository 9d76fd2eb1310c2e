#pragma once

class QTableView;

namespace desk {
class Grid;
}

namespace desk::desktop {

/// Copying out of a grid, with Ctrl+A and Ctrl+C and by a menu of its own: rows come as lines with tabs, as a
/// spreadsheet takes them.
void addCopying(QTableView* view, Grid& grid);

}  // namespace desk::desktop
