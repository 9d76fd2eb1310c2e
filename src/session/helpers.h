#pragma once

#include <string>

namespace desk {

class Application;
class Grid;
class Screen;
class CodedCombo;
class Tree;
class TreeNode;

/// Puts the screen into the middle of the main window, also where it is larger than that.
void 窗体居中(Application& app, Screen& screen);

/// Fits each column to its longest text, header included, measured in the font of `form`, and a margin of 90
/// twips. A column of general alignment keeps its width.
void 列宽自适应(Application& app, Grid& grid, const Screen& form);

/// As above without column 0, and a column of general alignment disappears.
void 列宽自适应1(Application& app, Grid& grid, const Screen& form);

/// Fits each column but column 0 to its longest text, header included, measured in the font of `form`, and a
/// margin of 180 twips, whatever its alignment.
void GridFit(Application& app, Grid& grid, const Screen& form);

/// Sets `专项审核权限`: whether the position sees across departments.
void 读取专项审核权限(Application& app);

/// Fills a combo with the offices that the user's department may work for, each "{GYD_DH} {GYD_Name}", none
/// selected.
void 填充管理处(Application& app, CodedCombo& combo);
/// The same for a screen that opens with what it has: a failure ends the filling without a word.
void 尽量填充管理处(Application& app, CodedCombo& combo);

/// Adds the same offices as nodes with the key "G" and the code, under `parent` or as roots.
void 添加管理处(Application& app, Tree& tree, TreeNode* parent);

}  // namespace desk
