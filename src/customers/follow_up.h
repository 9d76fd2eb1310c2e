#pragma once

#include "customers/lead_block.h"
#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/choices.h"
#include "ui/entry_button.h"
#include "ui/fields.h"
#include "ui/floating_calendar.h"
#include "ui/grid.h"
#include "ui/tree.h"

namespace desk {

/// The salesperson's desk: the customers assigned to the user, and the diary of each one. The caption of the
/// first button is the mode: "取消" while a new entry is being made.
class Frm客户跟进记录 : public Screen {
  public:
    static constexpr const char* screenName = "frm客户跟进记录";

    explicit Frm客户跟进记录(Application& app);
    void load() override;
    void activate() override { maximise(); }

    CodedCombo 管理项目{*this, "管理项目"};
    Tree 客户{*this, "客户"};
    TextBox 业务员{*this, "业务员"};
    客户信息块 客户信息;
    TextBox 中介人员{*this, "中介人员"};
    TextBox 中介联系电话{*this, "中介联系电话"};
    TextBox 中介传真{*this, "中介传真"};

    TabStrip 页签{*this, "页签", {"跟进信息记录", "跟进情况"}};
    Frame 记录页{*this, "记录页"};
    TextBox 跟进日期{记录页, "跟进日期"};
    Button 跟进日期按钮{记录页, "跟进日期按钮", "▼"};
    CodedCombo 跟进人员{记录页, "跟进人员"};
    CodedCombo 跟进状态{记录页, "跟进状态"};
    Swatch 颜色{记录页, "颜色"};
    TextBox 跟进情况{记录页, "跟进情况", TextStyle::paragraph};
    TextBox 预约日期{记录页, "预约日期"};
    Button 预约日期按钮{记录页, "预约日期按钮", "▼"};
    EntryButton 新增{记录页, "新增"};
    Button 确定{记录页, "确定", "确定", ButtonRole::main};
    Button 删除{记录页, "删除", "删除"};
    Button 退出{记录页, "退出", "退出"};
    Frame 情况页{*this, "情况页"};
    Grid 跟进列表;
    FloatingCalendar 日历;

  private:
    void fillPersons();
    void fillStates();
    void chooseOffice();
    void leaveCustomer();
    void hideCalendar();
    void selectCustomer(const TreeNode& node);
    void showCustomer(const std::string& no);
    void readDiary(const std::string& no);
    void reloadCustomer();
    void showDiaryRow();
    void clearEntry();
    void startOrCancel();
    void save();
    void writeEntry(Recordset& diary);
    void remove();
    void showTab();

    Application& app_;
    std::string currentId_;  ///< of the diary row in the entry, empty for a new one
};

}  // namespace desk
