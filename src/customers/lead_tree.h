#pragma once

#include <string>
#include <string_view>

#include "db/recordset.h"
#include "ui/tree.h"

namespace desk {

/// Fills `tree` with one top-level node a lead, of all kinds together: the key "D" and the number, the text a
/// mark of the kind, the number and a name. Leads of an unknown kind are left out.
void 填充客户树(Tree& tree, Recordset& leads);

/// The number of a lead's node there, empty for any other node.
std::string 登记编号Of(const TreeNode& node);

/// Adds the node of a lead under `parent`, its key `prefix` and the number. Two seats that save at the same
/// moment can draw one number: each of such leads has a node, and each node answers to that number.
void 添加客户(Tree& tree, TreeNode* parent, std::string_view prefix, std::string_view number,
              std::string_view text);
/// The number of such a node, empty for a node of another prefix.
std::string 登记编号Of(const TreeNode& node, std::string_view prefix);

}  // namespace desk
