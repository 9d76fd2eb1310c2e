#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/spreadsheets.h"
#include "ui/grid.h"

namespace desk {

/// The titles above an exported table.
struct ExportTitles {
    std::string title;
    std::string subtitle;
    std::string printed;  ///< tells the day of printing
};

/// The sheet of that name: three rows of titles, and below them the chosen columns of `grid` with its header
/// rows. `grid` must stay as it is until the sheet is written; `progress` is then told of rows done, now and
/// then. Fails with 1004 for a column beyond the last that has a name, and where Worksheet does.
Worksheet exportSheet(const Grid& grid, const std::vector<int>& columns, const std::string& name,
                      const ExportTitles& titles, const std::function<void(int rowsDone)>& progress);

}  // namespace desk
