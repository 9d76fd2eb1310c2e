#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "db/recordset.h"
#include "ui/grid.h"

namespace desk {

/// The entries of a setup screen: the first column numbers the rows and marks the current one with "→", and
/// the last row is blank, the place of a new entry.
class SetupGrid : public Grid {
  public:
    /// `keyColumn` is the column that is empty in a blank row and names the entry in any other.
    SetupGrid(Place place, std::string name, std::string_view format, int keyColumn = 1);

    /// The key of the current row, empty where that is blank.
    std::string key() const;

    /// Shows `entries`, the named columns in their order behind the number, and goes to a blank row behind
    /// them. `each` is told of each row while the recordset stands on it.
    void fill(Recordset& entries, const std::vector<std::string_view>& columns,
              const std::function<void(int row)>& each = {});
    /// Numbers all rows and marks the current one.
    void mark();
    void goToLast();
    /// Goes to the first row of that key, where there is one.
    void goTo(std::string_view key);
    /// Appends a blank row; the current one stays.
    void grow();
    /// Writes `cells` behind the row's number.
    void put(int row, const std::vector<std::string>& cells);
    /// Takes the current row away and goes to the blank one.
    void dropCurrent();

  private:
    int keyColumn_;
};

}  // namespace desk
