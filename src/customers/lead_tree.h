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

}  // namespace desk
