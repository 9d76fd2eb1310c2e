#include "reference/personnel.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "reference/department_tree.h"
#include "support/test_program.h"

namespace desk {
namespace {

/// Three departments, of which 0101 has moved below 01, with staff in one, and a team.
class Personnel : public testing::Test {
  protected:
    Personnel() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.run(
            {"Insert Into 职能部门new (职能部门编号,职能部门名称,职能部门类别代号) Values "
             "('01','招商部','A'),('02','财务部','A'),('0101','外拓科','A')",
             "Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values "
             "('0101','02','2009-1-1'),('0101','01','2010-1-1')",
             "Insert Into 职能部门类别 (部门类别代号,部门类别名称) Values ('A','业务')",
             "Insert Into 岗位类别 (岗位类别编号,岗位类别名称) Values ('P','专员')",
             "Insert Into 员工档案 (工号,姓名) Values ('E01','林晓'),('E2','周平')",
             "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号,岗位类别代号,工号) Values "
             "('0101','岗位0101','01','P','E01'),('0102','岗位0102','01','P','E2')",
             "Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('E01','0101',1),('E2','0102',1)",
             "Insert Into YZ_主职表 (主职代号,主职名称) Values ('2','组长')",
             "Insert Into YZ_组表 (组代号,组名称) Values ('1','一组')"});
        program.enter();
        program.app.screens.offer<Frm人员设置>(program.app);
    }
    Frm人员设置& screen() { return program.app.screens.get<Frm人员设置>(); }

    TestProgram program;
};

TEST_F(Personnel, AnOfficeThatCannotBeGivenStaysAsItIsStored) {
    screen().页签.click(1);
    auto& tree = screen().组管理处.TreeView3;
    TreeNode& office = *tree.find("G01");
    tree.tick(office, true);
    EXPECT_EQ(program.desktop.takeMessage(), "尚未选择部门，请选择部门信息！");
    EXPECT_FALSE(office.checked());

    screen().组.列表.click(1, 0);
    tree.tick(office, true);
    program.fault = {2, failure::unspecified};
    tree.tick(office, false);
    ASSERT_EQ(program.desktop.messages.size(), 1U);
    EXPECT_EQ(program.desktop.messages[0].text, Fault::text);
    EXPECT_EQ(program.desktop.messages[0].icon, Icon::information);
    EXPECT_TRUE(office.checked());
}

/// The row is that of its member, whoever was picked before it was saved.
TEST_F(Personnel, ASavedChangeShowsWhoWasChanged) {
    program.run(
        {"Insert Into YZ_组人员设置 (组代号,员工工号,主职代号,设置日期) Values ('1','E2','2','2011-1-1')"});
    MemberTab& tab = screen().人员;
    screen().页签.click(2);
    tab.TreeView1.click(*tab.TreeView1.find("Z1"));
    tab.MSFlexGrid3.click(1, 1);
    ASSERT_EQ(tab.Text7.text(), "周平");
    tab.选择员工.click();
    TreeNode& other = *tab.TreeView2.roots().front()->children().front();
    ASSERT_EQ(other.text(), "岗位0101 [E01] 林晓");
    tab.TreeView2.click(other);
    tab.Text8.type("新");
    tab.确定.click();
    EXPECT_EQ(tab.Text7.text(), "周平");
    EXPECT_EQ(program.desktop.notices.back(), "已保存 周平");
    EXPECT_EQ(program.rows("Select 员工工号,备注 From YZ_组人员设置"), std::vector<std::string>{"E2|新"});
    program.run({"Update YZ_组人员设置 Set 终止日期='2011-2-1'"});
    tab.确定.click();
    EXPECT_EQ(program.desktop.notices.back(), "没有保存：要修改的记录已不存在");
}

TEST_F(Personnel, DepartmentsThatNameEachOtherAreShownOnce) {
    program.run(
        {"Insert Into 职能部门new (职能部门编号,职能部门名称) Values "
         "('03','甲'),('04','乙'),('05','自己'),('07','孤儿')",
         "Insert Into 职能部门new (职能部门编号,职能部门名称,终止日期) Values ('06','撤销','2010-1-1')",
         "Insert Into 上级部门new (职能部门编号,上级部门编号,起始日期) Values ('03','04','2010-1-1'),"
         "('04','03','2010-1-1'),('05','05','2010-1-1'),('0101','02','2010-1-1'),('07','06','2010-1-1')"});
    auto& tree = screen().人员.TreeView2;
    const auto shown = 添加部门(program.app, tree, [](const std::string& number) { return "$" + number; });
    EXPECT_EQ(shown.size(), 7U);
    std::string lines;
    const std::function<void(const TreeNodes&, int)> visit = [&](const TreeNodes& nodes, int depth) {
        for (const TreeNode* node : nodes) {
            lines += std::string(static_cast<std::size_t>(depth), ' ') + std::string(node->text()) + "\n";
            visit(node->children(), depth + 1);
        }
    };
    visit(tree.roots(), 0);
    EXPECT_EQ(lines, "01 招商部\n 0101 外拓科\n02 财务部\n03 甲\n 04 乙\n05 自己\n07 孤儿\n");
}

}  // namespace
}  // namespace desk
