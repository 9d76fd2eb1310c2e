#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ui/grid.h"
#include "ui/tree.h"

namespace desk {

/// A text that a person looks for. Upper and lower case, full and half width do not count.
class Wanted {
  public:
    explicit Wanted(std::string_view text);

    bool isEmpty() const { return folded_.empty(); }
    bool isIn(std::string_view text);
    /// Whether a word of `text` begins so. A mark in brackets before a word is none of it.
    bool beginsAWordOf(std::string_view text);

  private:
    std::string folded_;
    std::string read_;  ///< the text that is being looked through, kept for its room
};

enum class Towards { next, previous };

/// The nearest node behind or before `from` that holds the text, also in folded branches, in the order in
/// which they are read and around the end; `from` itself comes last. Without `from` the search begins at the
/// first or last node. Null when there is none.
TreeNode* findNode(const Tree& tree, Wanted& wanted, const TreeNode* from, Towards towards);

/// The nearest node behind `from` of which a word begins so, around the end; `from` itself comes last.
TreeNode* findBeginning(const Tree& tree, Wanted& wanted, const TreeNode* from);

struct GridPlace {
    int row;
    int column;
    bool operator==(const GridPlace&) const = default;
};

/// The same in the cells below the fixed rows, row by row, hidden columns left out.
std::optional<GridPlace> findCell(const Grid& grid, Wanted& wanted, std::optional<GridPlace> from,
                                  Towards towards);

}  // namespace desk
