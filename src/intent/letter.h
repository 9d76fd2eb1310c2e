#pragma once

#include "intent/customer_picker.h"
#include "intent/letter_block.h"
#include "intent/letter_units.h"
#include "intent/opinions.h"
#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/entry_button.h"
#include "ui/floating_calendar.h"
#include "ui/tree.h"

namespace desk {

/// Where a letter of intent is written: who wants to rent which units, for how long and at what price. It is
/// sent into the approval from here. The caption of the first button is the mode: "取消" while a new letter
/// is being typed. The caption of 提交 tells whether the letter has been sent.
class Frm意向书信息 : public Screen {
  public:
    static constexpr const char* screenName = "frm意向书信息";

    explicit Frm意向书信息(Application& app);
    void load() override;

    CodedCombo 管理项目{*this, "管理项目"};
    Tree 意向书{*this, "意向书"};
    意向书信息块 信息{*this, 意向书信息块::Use::editable};
    CheckBox Check5{*this, "Check5", "采用自动编号"};
    Button 选择承租方{*this, "选择承租方", "选择"};
    Button 选择单元{*this, "选择单元", "选择"};
    Button 日期按钮{*this, "日期按钮", "▼"};
    EntryButton 新增{*this, "新增"};
    Button 确定{*this, "确定", "确定", ButtonRole::main};
    Button 提交;
    Button 删除{*this, "删除", "删除"};
    Button 退出{*this, "退出", "退出"};
    FloatingCalendar 日历;

    客户选择 客户;
    租赁单元选择 单元;
    租赁单元列表& 单元列表 = 单元.列表;
    Panel 审批面板{*this, "审批面板", "审批情况"};
    审批意见列表 审批意见;
    Button 审批关闭{审批面板, "审批.关闭", "关闭", ButtonRole::main};

  private:
    static constexpr std::string_view 先选意向书 = "请先选择意向书";

    void connect();
    void serveDates();
    std::string code() const { return 管理项目.code(); }

    void refillTree();
    void leaveLetter();
    void selectLetter(const TreeNode& node);
    void showLetter(Recordset& letter);
    /// Whether a letter of the chosen office is on the screen.
    bool isShown() const { return !shownOf_.empty() && shownOf_ == code(); }
    void sumUp();
    void startOrCancel();
    void startEntering();
    void followAutomaticBox();
    void submitOrShow();
    void remove();

    void save();
    bool storeLetter();
    bool addLetter();
    void write(Recordset& letter);
    Recordset openForWriting(std::string_view number);

    Application& app_;
    /// The office of the letter on the screen, empty without one: its number alone would be another letter's
    /// in another office.
    std::string shownOf_;
};

}  // namespace desk
