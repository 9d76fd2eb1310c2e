#pragma once

#include <vector>

namespace desk {

/// What a column of a table has and would like to have.
struct ColumnWish {
    int width;        ///< as the screen set it
    int needed;       ///< that nothing in it is cut
    bool takesSpare;  ///< whether it looks well when it is wider than it needs to be
};

/// The widths of the columns in a table that is `available` wide. Spare width goes to what would be cut
/// first, then to the columns that take it, in proportion to their widths. Where a little is missing, these
/// columns give up what they do not need, if all columns can be seen by that; else none gets less than it
/// has.
std::vector<int> columnShares(const std::vector<ColumnWish>& wishes, int available);

}  // namespace desk
