#pragma once

#include <string>
#include <string_view>

#include "ui/grid.h"

namespace desk {

/// The text as a spreadsheet takes it for one cell: one that holds a tab, a line break or a quote stands in
/// quotes.
std::string sheetCell(std::string_view text);

/// The rows from `first` up to `end`, which is left out: a line each, tabs between the cells, hidden columns
/// left out.
std::string sheetRows(const Grid& grid, int first, int end);

}  // namespace desk
