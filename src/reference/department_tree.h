#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "session/application.h"
#include "ui/tree.h"

namespace desk {

/// A department that the tree shows.
struct DepartmentNode {
    std::string number;
    TreeNode* node;
};

/// Adds all departments in force, each as "{编号} {名称}" under the parent that its latest row names, and
/// gives them in the order of the tree's levels. `keyOf` makes a department's key of its number. One whose
/// parents lead to no top, because they name each other or have gone, is shown as a root itself.
std::vector<DepartmentNode> 添加部门(Application& app, Tree& tree,
                                     const std::function<std::string(const std::string& number)>& keyOf);

/// Adds the positions of a department under its node, each with its holder as "{岗位名称} [{工号}] {姓名}".
void 添加多岗位信息(Application& app, Tree& tree, TreeNode& department, const std::string& number);

/// Adds a root for the staff of one department, and the staff beneath it.
void 添加岗位信息(Application& app, Tree& tree, const std::string& 部门编号);

/// Whether the node stands for a person or a vacant position.
bool isStaff(const TreeNode& node);
/// Of a staff node, both empty where the position is vacant.
std::string_view staffNumber(const TreeNode& node);
std::string_view staffName(const TreeNode& node);

}  // namespace desk
