#pragma once

#include "customers/lead_block.h"
#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/floating_calendar.h"
#include "ui/tree.h"

namespace desk {

/// Gives a registered customer to one person of a team, and ends such an assignment.
class Frm客户跟进信息分配 : public Screen {
  public:
    static constexpr const char* screenName = "Frm客户跟进信息分配";

    explicit Frm客户跟进信息分配(Application& app);
    void load() override;
    void activate() override { maximise(); }

    CodedCombo 管理项目{*this, "管理项目"};
    Tree 客户{*this, "客户"};
    客户信息块 客户信息;
    CodedCombo 选择组{*this, "选择组"};
    CodedCombo 选择人员{*this, "选择人员"};
    TextBox 是否分配{*this, "是否分配"};
    TextBox 分配日期{*this, "任务.分配日期"};
    TextBox 终止日期{*this, "任务.终止日期"};
    Button 日历按钮{*this, "日历按钮", "▼"};
    Button 确定{*this, "确定", "确定", ButtonRole::main};
    Button 终止{*this, "终止", "终止"};
    Button 退出{*this, "退出", "退出"};
    FloatingCalendar 日历;

  private:
    /// Of the customer on whom 确定 and 终止 act, empty without one.
    std::string loadedNumber();
    void chooseOffice();
    void chooseTeam();
    void selectCustomer(const TreeNode& node);
    void showAssignment(const std::string& no);
    void assign();
    void end();

    Application& app_;
    bool 已选客户_ = false;  ///< since the office was chosen
};

}  // namespace desk
