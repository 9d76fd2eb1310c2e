#include "reference/personnel.h"

#include "reference/department_tree.h"
#include "reference/fixture.h"

namespace desk {
namespace {

/// Three departments, of which 0101 has moved below 01, with staff in two.
class Personnel : public SetupTest {
  protected:
    Personnel() {
        program.run({
            "Insert Into 职能部门new (职能部门编号,职能部门名称,职能部门类别代号) Values ('01','招商部','A')",
            "Insert Into 职能部门new (职能部门编号,职能部门名称,职能部门类别代号) Values ('02','财务部','A')",
            "Insert Into 职能部门new (职能部门编号,职能部门名称,职能部门类别代号) Values "
            "('0101','外拓科','A')",
            "Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values ('0101','02','2009-1-1')",
            "Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values ('0101','01','2010-1-1')",
            "Insert Into 职能部门类别 (部门类别代号,部门类别名称) Values ('A','业务')",
            "Insert Into 岗位类别 (岗位类别编号,岗位类别名称) Values ('P','专员')",
            "Insert Into 员工档案 (工号,姓名) Values ('E01','林晓')",
            "Insert Into 员工档案 (工号,姓名) Values ('E2','周平')",
        });
        addPosition("0101", "01", "E01");
        addPosition("0102", "01", "E2");
        addPosition("0103", "01", "");
        addPosition("0201", "02", "E01");
        program.run({"Insert Into YZ_主职表 (主职代号,主职名称,主职说明) Values ('10','顾问','')",
                     "Insert Into YZ_主职表 (主职代号,主职名称) Values ('2','组长')",
                     "Insert Into YZ_组表 (组代号,组名称) Values ('1','一组')"});
    }

    void addPosition(const std::string& code, const std::string& department, const std::string& holder) {
        program.db().execute(
            sql("Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号,岗位类别代号,工号) Values "
                "('{}','岗位{}','{}','P',{})",
                code, code, department, literalOrNull(holder)));
        if (!holder.empty())
            program.db().execute(sql(
                "Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('{}','{}',1)", holder, code));
    }
    Frm人员设置& opened() { return open<Frm人员设置>(); }
    static void expectTree(const Tree& tree, const std::vector<std::string>& expected) {
        std::vector<std::string> lines;
        const std::function<void(const TreeNode&, int)> visit = [&](const TreeNode& node, int depth) {
            lines.push_back(std::string(static_cast<std::size_t>(depth), ' ').append(node.text()));
            for (const TreeNode* child : node.children()) visit(*child, depth + 1);
        };
        for (const TreeNode* root : tree.roots()) visit(*root, 0);
        EXPECT_EQ(lines, expected);
    }
    void pick(MemberTab& tab, std::string_view text) {
        if (!tab.TreeView2.visible()) tab.选择员工.click();
        const std::function<TreeNode*(const TreeNodes&)> find = [&](const TreeNodes& nodes) -> TreeNode* {
            for (TreeNode* node : nodes) {
                if (node->text() == text) return node;
                if (TreeNode* below = find(node->children())) return below;
            }
            return nullptr;
        };
        TreeNode* node = find(tab.TreeView2.roots());
        ASSERT_NE(node, nullptr) << text;
        tab.TreeView2.click(*node);
    }
    void clickTeam(MemberTab& tab, std::string_view key) { tab.TreeView1.click(*tab.TreeView1.find(key)); }
};

TEST_F(Personnel, TheOfficesOfATeamKeepTheirHistory) {
    auto& screen = opened();
    screen.页签.click(1);
    auto& tree = screen.组管理处.TreeView3;
    expectTree(tree, {"01 东塔", "02 西塔"});
    TreeNode& office = *tree.find("G01");
    tree.tick(office, true);
    EXPECT_EQ(said(), "尚未选择部门，请选择部门信息！");
    EXPECT_FALSE(office.checked());

    screen.组.列表.click(1, 0);
    for (const bool ticked : {true, false, true}) tree.tick(office, ticked);
    EXPECT_EQ(program.rows("Select 组代号,管理处代号,设置日期,终止日期 From YZ_组对应管理项目设置 Order By "
                           "终止日期"),
              (std::vector<std::string>{"1|01|2011-03-05|", "1|01|2011-03-05|2011-03-05"}));
    screen.组.列表.click(2, 0);
    EXPECT_FALSE(office.checked());
    screen.组.列表.click(1, 0);
    EXPECT_TRUE(office.checked());
    EXPECT_FALSE(tree.find("G02")->checked());

    program.fault = {2, failure::unspecified};
    tree.tick(office, false);
    ASSERT_EQ(program.desktop.messages.size(), 1U);
    EXPECT_EQ(program.desktop.messages[0].text, Fault::text);
    EXPECT_EQ(program.desktop.messages[0].icon, Icon::information);
    EXPECT_TRUE(office.checked()) << "as it is stored";
}

/// The row is that of its member, whoever was picked before it was saved.
TEST_F(Personnel, ASavedChangeShowsWhoWasChanged) {
    program.run(
        {"Insert Into YZ_组人员设置 (组代号,员工工号,主职代号,设置日期) Values ('1','E2','2','2011-1-1')"});
    auto& screen = opened();
    MemberTab& tab = screen.人员;
    screen.页签.click(2);
    tab.TreeView1.click(*tab.TreeView1.find("Z1"));
    tab.MSFlexGrid3.click(1, 1);
    ASSERT_EQ(tab.Text7.text(), "周平");
    pick(tab, "岗位0101 [E01] 林晓");
    tab.Text8.type("新");
    tab.确定.click();
    EXPECT_EQ(tab.Text7.text(), "周平");
    EXPECT_EQ(program.desktop.notices.back(), "已保存 周平");
    EXPECT_EQ(program.rows("Select 员工工号,备注 From YZ_组人员设置"), std::vector<std::string>{"E2|新"});
    program.run({"Update YZ_组人员设置 Set 终止日期='2011-2-1'"});
    tab.确定.click();
    EXPECT_EQ(program.desktop.notices.back(), "没有保存：要修改的记录已不存在");
}

TEST_F(Personnel, AMemberWithTwoPositionsOfTheDepartmentAppearsTwice) {
    addPosition("0104", "01", "E2");
    program.run({"Insert Into YZ_组人员设置 (组代号,员工工号,主职代号) Values ('1','E2','2')",
                 "Insert Into 员工档案 (工号,姓名) Values ('E9','外人')",
                 "Insert Into YZ_组人员设置 (组代号,员工工号,主职代号) Values ('1','E9','2')"});
    auto& screen = opened();
    screen.页签.click(2);
    clickTeam(screen.人员, "Z1");
    EXPECT_EQ(screen.人员.MSFlexGrid3.rows(), 4);
    EXPECT_EQ(screen.人员.MSFlexGrid3.text(2, 6), "E2");
}

TEST_F(Personnel, DepartmentsThatNameEachOtherAreShownOnce) {
    program.run({
        "Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('03','甲')",
        "Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('04','乙')",
        "Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('05','自己')",
        "Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values ('03','04','2010-1-1')",
        "Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values ('04','03','2010-1-1')",
        "Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values ('05','05','2010-1-1')",
        "Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values ('0101','02','2010-1-1')",
        "Insert Into 职能部门new (职能部门编号,职能部门名称,终止日期) Values ('06','撤销','2010-1-1')",
        "Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('07','孤儿')",
        "Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values ('07','06','2010-1-1')",
    });
    auto& tree = opened().人员.TreeView2;
    const auto shown = 添加部门(program.app, tree, [](const std::string& number) { return "$" + number; });
    EXPECT_EQ(shown.size(), 7U);
    expectTree(tree, {"01 招商部", " 0101 外拓科", "02 财务部", "03 甲", " 04 乙", "05 自己", "07 孤儿"});
}

}  // namespace
}  // namespace desk
