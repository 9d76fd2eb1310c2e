#pragma once

#include <string>
#include <vector>

#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/folding_frame.h"
#include "ui/grid.h"

namespace desk {

/// The customers of chosen kinds, trades and teams, and of one agency where one is named: a row for each team
/// that a customer is assigned to.
class Frm客户分类统计 : public Screen {
  public:
    static constexpr const char* screenName = "frm客户分类统计";

    explicit Frm客户分类统计(Application& app);
    void load() override;

    /// The statement behind the table of what is marked.
    std::string 统计语句() const;

    FoldingFrame 条件{*this, "条件", "统计条件"};
    CodedCombo Combo1{条件, "Combo1"};
    CheckBox Check1{条件, "Check1", "全选"};
    ListBox List1{条件, "List1", ListStyle::multiple};  ///< 企业性质
    CheckBox Check2{条件, "Check2", "全选"};
    ListBox List2{条件, "List2", ListStyle::multiple};  ///< 行业
    CheckBox Check3{条件, "Check3", "全选"};
    ListBox List3{条件, "List3", ListStyle::multiple};  ///< 引驻组
    TextBox Text1{条件, "Text1"};  ///< searches the agencies, and narrows to the one named
    ListBox List4{条件, "List4"};  ///< 中介公司
    Button Command1{条件, "Command1", "统计", ButtonRole::main};
    Button Command13{条件, "Command13", "输出"};
    Button Command4{条件, "Command4", "退出"};
    Grid MSFlexGrid1{*this, "MSFlexGrid1", resultFormat};

  private:
    static constexpr const char* resultFormat =
        "<序 |<组别        |<客户名称          |<企业性质|<姓名    |<联系电话  |<完成情况 |<中介公司         "
        "|<备注      ";

    void showOffice();
    void readTeams();
    void readAgencies();
    void search();
    void analyse();
    void showResult();
    std::vector<std::string> markedTeams() const;

    Application& app_;
    std::vector<std::string> 中介公司_;  ///< of the office, whatever is searched for
};

}  // namespace desk
