#include "session/grid_rows.h"

#include "db/recordset.h"
#include "ui/batch.h"
#include "ui/grid.h"

namespace desk {

void fillGrid(Grid& grid, Recordset& entries, const std::vector<std::string_view>& columns,
              const std::function<void(int row)>& each) {
    constexpr int blank = -1;
    const Refill filling(grid);
    std::vector<int> places;
    for (const auto column : columns) places.push_back(column.empty() ? blank : entries.column(column));
    for (auto& entry : entries) {
        std::vector<std::string> cells;
        cells.reserve(places.size() + 1);
        cells.push_back(std::to_string(grid.rows()));
        for (const int place : places) cells.push_back(place == blank ? std::string() : entry[place].text());
        const int row = grid.addRow(std::move(cells));
        if (each) each(row);
    }
}

}  // namespace desk
