#pragma once

#include <string>
#include <string_view>

#include "ui/tree.h"

namespace desk {

/// Adds a node under `parent`, or as a root, its key `prefix` and the number. Two seats that save at the same
/// moment can draw one number: each of such rows has a node, and each node answers to that number.
void addNumbered(Tree& tree, TreeNode* parent, std::string_view prefix, std::string_view number,
                 std::string_view text, std::string_view image = {});

/// The number of such a node, empty for a node of another prefix.
std::string numberOf(const TreeNode& node, std::string_view prefix);

}  // namespace desk
