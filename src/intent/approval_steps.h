#pragma once

#include <cstdint>
#include <string>

#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/entry_button.h"
#include "ui/grid.h"
#include "ui/panel.h"
#include "ui/tree.h"

namespace desk {

/// The frame "审批环节列表" of the path setup: the numbered steps of one path, each a department and a
/// position.
class 审批环节 {
  public:
    审批环节(Screen& screen, Application& app);
    审批环节(const 审批环节&) = delete;
    审批环节& operator=(const 审批环节&) = delete;

    /// Builds the tree of departments.
    void load();
    /// Shows the steps of the path of that `ID`, the first one selected. A failure reaches the caller.
    void showPath(const std::string& 路径ID);
    /// Nothing can be edited until a path is shown again.
    void close();
    void hideDepartments() { 部门面板.close(); }
    void clearDepartment() { 部门.setText(""); }

    /// Changes places with a neighbour: the row `ID` of step number `HJ` and the row `邻ID` of the number
    /// before it (`up`) or behind it, both or neither. Where the numbers have changed meanwhile nothing is
    /// written.
    void UpdateHJXH(std::int16_t HJ, std::int16_t ID, std::int16_t 邻ID, const bool& up);

    Frame 框;
    TextBox 环节序号;
    TextBox 部门;
    Button 选择部门;
    Panel 部门面板;
    Tree 部门树;
    CodedCombo 岗位;
    Grid 列表;
    EntryButton 新增;
    Button 确定;
    Button 删除;
    Button 上移;
    Button 下移;

  private:
    std::string cell(int column) const;
    void guarded(void (审批环节::*handler)());
    void reload();
    void fill();
    void selectStep();
    void showStep();
    void fillPositions(std::string_view 部门代号);
    void pickDepartment(const TreeNode& node);
    void startOrCancel();
    void start();
    void browse();
    void letMove(bool movable);
    void save();
    void add();
    bool change();
    void write(Recordset& step);
    void remove();
    void closeGap(const std::string& 环节);
    void move(bool up);
    void changePlaces(bool up, int& row);

    Application& app_;
    std::string pathId_;
};

}  // namespace desk
