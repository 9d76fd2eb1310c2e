#pragma once

#include <functional>
#include <string_view>
#include <vector>

namespace desk {

class Grid;
class Recordset;

/// Shows `entries` under the grid's fixed rows in place of what stood there: in the first column the row's
/// number, behind it the named columns in their order; an empty name leaves its cell blank. `each` is told of
/// every row while the recordset stands on it.
void fillGrid(Grid& grid, Recordset& entries, const std::vector<std::string_view>& columns,
              const std::function<void(int row)>& each = {});

}  // namespace desk
