#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "customers/registration_rules.h"
#include "db/recordset.h"
#include "session/application.h"
#include "session/coded_combo.h"
#include "session/row_fields.h"
#include "ui/choices.h"
#include "ui/entry_button.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/panel.h"
#include "ui/tree.h"

namespace desk {

/// A box "其它（需说明）" and the text that it opens.
struct 其它说明 {
    其它说明(Screen& screen, const std::string& name);

    CheckBox 勾选;
    TextBox 文本;
};

/// A list of which several lines can be chosen, and a text for what the list lacks.
struct 多选项目 {
    多选项目(Screen& screen, const std::string& name);

    /// The chosen lines and the other-text as one text, parts joined by ",".
    std::string text() const;
    /// Chooses the lines that `text` names; the rest goes to the other-text. False when there was no rest.
    bool choose(std::string_view text);
    bool isEmpty() const;

    ListBox 列表;
    其它说明 其它;
};

/// The panel over the agency page on which one of the office's agencies is picked.
struct 中介公司选择 {
    中介公司选择(Screen& screen, const std::string& name);

    TextBox 中介公司名称;
    Button 选择中介公司;
    Panel 面板;
    Grid 列表;
    Button 面板确定;
    Button 面板关闭;
};

/// One page of the registration screen: a tree of the office's leads of one kind, and the fields of one of
/// them. The caption of the first button is the mode: "新增" while browsing (a save changes the selected
/// lead), "取消" while entering (a save adds one).
class 登记页 {
  public:
    /// `name` leads the names of the page's controls.
    登记页(Application& app, Screen& screen, std::string_view name, const 登记页规则& rules);

    const 登记页规则& rules() const { return rules_; }
    /// Whether a save would add a lead.
    bool entering() const { return 新增.entering(); }

  private:
    Application& app_;
    Screen& screen_;
    const 登记页规则& rules_;
    std::string name_;

  public:
    CodedCombo 管理项目;
    Tree 客户;
    CheckBox 采用自动编号;
    TextBox 登记编号;
    TextBox 公司名称;
    TextBox 客户姓名;
    TextBox 客户电话;
    TextBox 公司地址;
    ComboBox 区域;
    其它说明 区域其它;
    TextBox 需求面积;
    ComboBox 从事行业;
    多选项目 询问重点;
    DatePicker 登记日期;
    TextBox 业务员;
    TextBox 备注;
    std::optional<多选项目> 媒体;
    std::optional<TextBox> 职位;
    std::optional<TextBox> 传真;
    std::optional<TextBox> 预算租金;
    std::optional<ComboBox> 企业性质;
    std::optional<TextBox> 洽谈重点;
    std::optional<TextBox> 推荐楼层;
    std::optional<中介公司选择> 中介;
    EntryButton 新增;
    Button 确定;
    Button 删除;
    Button 退出;

  private:
    /// The values that a save has worked out from combos, lists and other-texts.
    struct Worked {
        std::string 所在区域;
        std::string 媒体;
        std::string 询问重点;
    };

    void makeOptionalParts();
    void nameColumns();
    void connect();
    std::string code() const { return 管理项目.code(); }

    void refillTree();
    void selectNode(const TreeNode& node);
    void showLead(Recordset& lead);
    void showRegion(const std::string& region);
    void clearChoices();
    void startOrCancel();
    void startEntering();
    void followAutomaticBox();
    void remove();
    void toggleAgencies();
    void takeAgency();

    void save();
    std::optional<Worked> checkedFields();
    bool isDuplicate();
    std::optional<Value> drawNumber();
    bool numberTaken(const std::string& number) const;
    void addLead(const Worked& worked, const Value& serial);
    void changeLead(const Worked& worked);
    Recordset openForWriting();
    void writeFields(Recordset& lead, const Worked& worked);

    RowFields 公司字段_;
    RowFields 字段_;
};

}  // namespace desk
