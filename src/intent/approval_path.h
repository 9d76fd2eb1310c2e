#pragma once

#include "intent/approval_steps.h"
#include "ui/choices.h"
#include "ui/entry_button.h"

namespace desk {

/// Who approves the letters of an office, and in which order: the paths, and the steps of the selected one.
/// The captions of the two buttons 新增 are the modes: "取消" while a new path, or a new step, is being
/// typed.
class Frm意向书审批路径设置 : public Screen {
  public:
    static constexpr const char* screenName = "frm意向书审批路径设置";

    explicit Frm意向书审批路径设置(Application& app);
    void load() override;

    TextBox 路径代号{*this, "路径代号"};
    TextBox 路径名称{*this, "路径名称"};
    TextBox 备注{*this, "备注"};
    CodedCombo 管理项目{*this, "管理项目"};
    CheckBox 单级流转{*this, "单级流转", " 单级流转"};
    EntryButton 新增{*this, "新增"};
    Button 确定{*this, "确定", "确定", ButtonRole::main};
    Button 删除{*this, "删除", "删除"};
    Grid 路径列表;
    审批环节 环节;
    StatusBar 状态栏{*this, "状态栏", 2};

  private:
    void guarded(void (Frm意向书审批路径设置::*handler)());
    void open();
    /// The `ID` of the current row, empty without one.
    std::string currentId() const;
    void fillPaths();
    void fitColumns();
    void selectPath();
    void showPath();
    void startOrCancel();
    void save();
    bool isDuplicate();
    void add();
    void change();
    void write(Recordset& path);
    void putRow(int row);
    void remove();
    void clearFields();

    Application& app_;
};

}  // namespace desk
