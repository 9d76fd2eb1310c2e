#pragma once

#include <string>
#include <string_view>

#include "db/recordset.h"
#include "ui/tree.h"

namespace desk {

/// What tells the trees of letters apart.
struct 意向书树 {
    std::string_view root;       ///< its text
    std::string_view rootKey{};  ///< empty where the root has none
    std::string_view keyColumn;  ///< stands behind "YM" in the key of a letter
    /// Whether two letters of one key are two nodes that answer to it; else the tree refuses the second.
    bool bearsDoubles = false;
};

/// Shows `letters` under one root in place of what stood in the tree: the number, a blank, the tenant.
void 填充意向书树(Tree& tree, const 意向书树& kind, Recordset& letters);

/// What stands behind "YM" in the key of a letter's node, empty for any other node.
std::string 意向书键(const TreeNode& node);

}  // namespace desk
