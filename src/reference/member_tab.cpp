#include "reference/member_tab.h"

#include "base/text.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "reference/department_tree.h"
#include "session/helpers.h"
#include "ui/batch.h"

namespace desk {

namespace {

enum Column { 姓名列 = 1, 岗位列, 主职列, 日期列, 备注列, 工号列 };

constexpr const char* rootKey = "L";
constexpr const char* teamLetter = "Z";

}  // namespace

MemberTab::MemberTab(Screen& screen, Application& app, SetupStatus& status)
    : Frame3(screen, "Frame3"),
      TreeView1(Frame3, "TreeView1"),
      MSFlexGrid3(Frame3, "MSFlexGrid3",
                  "<序|<姓名         |<岗位        |<对应主职    |<设置日期    |<备注             |", 工号列),
      Text7(Frame3, "Text7"),
      选择员工(Frame3, "选择员工", "…"),
      Combo1(Frame3, "Combo1"),
      DTPicker1(Frame3, "DTPicker1"),
      Text8(Frame3, "Text8"),
      TreeView2(Frame3, "TreeView2"),
      确定(Frame3, "人员设置.确定", "确定", ButtonRole::main),
      删除(Frame3, "人员设置.删除", "删除"),
      退出(Frame3, "人员设置.退出", "退出"),
      app_(app),
      status_(status) {
    MSFlexGrid3.setColumnWidth(工号列, 0);
    // A typed name would leave the staff number behind it unknown.
    Text7.setLocked(true);
    TreeView2.setVisible(false);
    DTPicker1.setValue(app.platform.clock.today());
    Text7.setDemanded(true);
    Combo1.setDemanded(true);
    TreeView1.nodeClicked += [this](TreeNode&) { showMembers(); };
    TreeView2.nodeClicked += [this](TreeNode& node) { pickStaff(node); };
    MSFlexGrid3.clicked += [this] { showMember(); };
    选择员工.clicked += [this] { toggleStaff(); };
    确定.clicked += [this] { save(); };
    删除.clicked += [this] { remove(); };
    退出.clicked += [this] { app_.screens.unload(Frame3.screen()); };
}

void MemberTab::fillDuties(Recordset duties) {
    Combo1.fill(std::move(duties), {"主职代号", "主职名称"});
}

void MemberTab::fillTeams(Recordset teams) {
    const std::string selected(TreeView1.selected() != nullptr ? TreeView1.selected()->key() : "");
    const Refill fill(TreeView1);
    TreeNode& root = TreeView1.add(nullptr, rootKey, "组列表");
    for (auto& team : teams)
        TreeView1.add(&root, teamLetter + team["组代号"].text(),
                      team["组代号"].text() + " " + team["组名称"].text());
    TreeView1.setExpanded(root, true);
    TreeView1.select(TreeView1.find(selected));
}

void MemberTab::toggleStaff() {
    TreeView2.setVisible(!TreeView2.visible());
    if (!TreeView2.visible()) return;
    {
        const Hourglass busy(app_.desktop);
        const Refill fill(TreeView2);
        if (app_.专项审核权限)
            for (const auto& [number, node] :
                 添加部门(app_, TreeView2, [](const std::string& department) { return department + "$"; }))
                添加多岗位信息(app_, TreeView2, *node, number);
        else
            添加岗位信息(app_, TreeView2, app_.session.登录部门编号);
    }
    TreeView2.focus();
}

void MemberTab::pickStaff(const TreeNode& node) {
    if (!isStaff(node)) return;
    Text7.setText(staffName(node));
    员工工号_ = staffNumber(node);
}

std::string MemberTab::selectedTeam() const {
    const TreeNode* node = TreeView1.selected();
    return node == nullptr || node->key() == rootKey ? std::string() : std::string(without(node->key(), 1));
}

void MemberTab::showMembers() {
    const std::string team = selectedTeam();
    if (team.empty()) return;
    status_.showAdding(title);
    readMembers(team);
}

void MemberTab::readMembers(const std::string& team) {
    列表组_ = team;
    Recordset members(
        app_.主连接, sql("Select  员工档案.工号,员工档案.姓名,岗位信息new.岗位名称,YZ_主职表.主职名称,"
                         "YZ_组人员设置.设置日期,YZ_组人员设置.备注 From YZ_组表 Inner Join YZ_组人员设置 On "
                         "YZ_组表.组代号=YZ_组人员设置.组代号 Inner Join YZ_主职表 On "
                         "YZ_组人员设置.主职代号=YZ_主职表.主职代号 Inner Join 员工档案 On "
                         "YZ_组人员设置.员工工号=员工档案.工号 Inner Join 岗位员工new On  "
                         "YZ_组人员设置.员工工号=岗位员工new.员工代号 Inner Join 岗位信息new On  "
                         "岗位员工new.岗位代号=岗位信息new.岗位代号 Where YZ_组人员设置.组代号='{}' and "
                         "岗位信息new.职能部门代号='{}'",
                         team, app_.session.登录部门编号));
    MSFlexGrid3.fill(members, {"姓名", "岗位名称", "主职名称", "设置日期", "备注", "工号"});
    列宽自适应1(app_, MSFlexGrid3, Frame3.screen());
}

void MemberTab::clearFields() {
    Text7.setText("");
    员工工号_.clear();
    Combo1.setIndex(-1);
    DTPicker1.setValue(app_.platform.clock.today());
    Text8.setText("");
}

void MemberTab::showMember() {
    MSFlexGrid3.mark();
    员工工号_ = MSFlexGrid3.key();
    if (员工工号_.empty()) {
        clearFields();
        return status_.showAdding(title);
    }
    const int row = MSFlexGrid3.row();
    Text7.setText(MSFlexGrid3.text(row, 姓名列));
    Combo1.setIndex(-1);
    Combo1.selectName(MSFlexGrid3.text(row, 主职列));
    if (const auto day = parseDate(MSFlexGrid3.text(row, 日期列))) DTPicker1.setValue(*day);
    Text8.setText(MSFlexGrid3.text(row, 备注列));
    status_.showChanging(title);
}

void MemberTab::save() {
    if (Text7.text().empty()) return app_.tell("未选择员工，请选择员工信息！");
    const std::string team = selectedTeam();
    if (team.empty()) return app_.tell("组信息未选择，请选择相应的组！");
    if (!Combo1.hasSelection()) return app_.tell("未选择对应主职，请选择主职！");
    if (status_.showsAdding()) {
        if (!add(team)) return;
        readMembers(team);
        return app_.saved(Text7.text());
    }
    const std::string number = MSFlexGrid3.key();
    const std::string name = MSFlexGrid3.text(MSFlexGrid3.row(), 姓名列);
    const bool written = change();
    readMembers(team);
    MSFlexGrid3.goTo(number);
    // A row keeps its person, whoever was picked meanwhile.
    员工工号_ = number;
    Text7.setText(name);
    written ? app_.saved(name) : app_.foundNothing();
}

bool MemberTab::add(const std::string& team) {
    Recordset member(app_.主连接,
                     sql("Select * From YZ_组人员设置 Where 员工工号='{}' And 终止日期 is Null", 员工工号_),
                     Rows::updatable);
    if (!member.atEnd()) {
        app_.tell("该员工已经设置过对应的组信息，请重新选择！");
        Text7.selectAll();
        Text7.focus();
        return false;
    }
    member.addNew();
    member["组代号"] = team;
    member["员工工号"] = 员工工号_;
    write(member);
    return true;
}

bool MemberTab::change() {
    Recordset member(
        app_.主连接,
        sql("Select * From YZ_组人员设置 Where 员工工号='{}' And 终止日期 is Null", MSFlexGrid3.key()),
        Rows::updatable);
    if (member.atEnd()) return false;
    write(member);
    return true;
}

void MemberTab::write(Recordset& member) {
    member["主职代号"] = Combo1.code();
    member["设置日期"] = isoDay(DTPicker1.value());
    member["备注"] = Text8.text();
    member.update();
}

void MemberTab::remove() {
    const std::string number = MSFlexGrid3.key();
    if (number.empty()) return app_.tell("您尚未选择要删除的员工信息，请选择！");
    if (!app_.confirmDeletion("确定要从组中删除选中的员工信息吗？")) return;
    app_.主连接.execute(sql("Delete From YZ_组人员设置 Where 员工工号='{}'", number));
    app_.tell("删除成功！");
    readMembers(列表组_);
    clearFields();
    status_.showAdding(title);
}

}  // namespace desk
