#pragma once

#include <string>

#include "reference/setup_pages.h"
#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/tree.h"

namespace desk {

/// The tab of the members of each team. A person belongs to one team at a time.
class MemberTab {
  public:
    static constexpr const char* title = "人员设置";

    MemberTab(Screen& screen, Application& app, SetupStatus& status);
    MemberTab(const MemberTab&) = delete;
    MemberTab& operator=(const MemberTab&) = delete;

    void fillDuties(Recordset duties);
    /// The same team stays selected if it is still there.
    void fillTeams(Recordset teams);

    Frame Frame3;
    Tree TreeView1;
    SetupGrid MSFlexGrid3;
    TextBox Text7;
    Button 选择员工;
    CodedCombo Combo1;
    DatePicker DTPicker1;
    TextBox Text8;
    Tree TreeView2;
    Button 确定;
    Button 删除;
    Button 退出;

  private:
    void toggleStaff();
    void pickStaff(const TreeNode& node);
    /// Empty where the root or nothing is selected.
    std::string selectedTeam() const;
    void showMembers();
    void readMembers(const std::string& team);
    void showMember();
    void clearFields();
    void save();
    bool add(const std::string& team);
    /// Whether the row that is to be changed was still there.
    bool change();
    void write(Recordset& member);
    void remove();

    Application& app_;
    SetupStatus& status_;
    std::string 员工工号_;  ///< of the person in Text7
    std::string 列表组_;    ///< the team whose members the grid shows
};

}  // namespace desk
