#include "reference/agencies.h"

#include "reference/fixture.h"

namespace desk {
namespace {

class Agencies : public SetupTest {
  protected:
    Frm中介公司设置& screen = open<Frm中介公司设置>();

    void choose(std::string_view key) { screen.管理项目.click(*screen.管理项目.find(key)); }
    void clickAgency(std::string_view name) {
        for (int row = 1; row < screen.列表.rows(); ++row)
            if (screen.列表.text(row, 1) == name) return screen.列表.click(row, 1);
        FAIL() << name;
    }
};

TEST_F(Agencies, NothingIsListedUntilAnOfficeIsChosen) {
    EXPECT_EQ(panels(screen.状态栏), "新增|中介公司设置");
    EXPECT_EQ(screen.列表.rows(), 2);
    const auto& offices = screen.管理项目.roots().front()->children();
    ASSERT_EQ(offices.size(), 2U);
    EXPECT_EQ(offices[0]->text(), "01 东塔");
    EXPECT_EQ(screen.管理项目.roots().front()->text(), "管理项目列表");
    screen.确定.click();
    EXPECT_EQ(said(), "管理项目信息未选择，请选择相应的管理项目！");
    choose("G01");
    EXPECT_EQ(screen.列表.rows(), 4);
    EXPECT_EQ(screen.列表.text(3, 0), "→");

    // Deleting goes by the remembered office, saving by the selected node.
    choose("L");
    EXPECT_EQ(screen.列表.rows(), 4);
    screen.删除.click();
    EXPECT_EQ(said(), "请选择管理项目！");
    screen["公司名称"].type("新");
    screen.确定.click();
    EXPECT_EQ(said(), "管理项目信息未选择，请选择相应的管理项目！");
}

TEST_F(Agencies, OneNameUnderTwoOfficesIsTwoRows) {
    choose("G02");
    screen.确定.click();
    EXPECT_EQ(said(), "公司名称不能为空，请填写公司名称！");
    screen["公司名称"].type(" 佳信 ");
    screen["负责人电话"].type("111");
    screen["联系人电话"].type(" 222 ");
    screen.确定.click();
    EXPECT_EQ(program.rows("Select 管理处代号,负责人电话,联系人电话 From YZ_中介公司设置 Where "
                           "公司名称='佳信' Order By 管理处代号"),
              (std::vector<std::string>{"01||", "02|111|222"}));
    EXPECT_EQ(program.rows("Select 公司名称 From YZ_中介公司设置 Where 开户银行 Is Null").size(), 4U);
    EXPECT_EQ(line(screen.列表, 2), "→|佳信|||111||||222|||");
    EXPECT_EQ(screen.列表.text(3, 0), "3");
    screen.确定.click();
    EXPECT_EQ(said(), "该管理项目中已经存在该中介公司信息，请重新设置！");
}

TEST_F(Agencies, TheNameOfAnAgencyStaysInTheTable) {
    choose("G01");
    clickAgency("佳信");
    EXPECT_EQ(panels(screen.状态栏), "修改|中介公司设置");
    screen["开户银行"].type("工行");
    screen["公司名称"].type("佳信置业");
    screen.确定.click();
    EXPECT_EQ(program.rows("Select 开户银行 From YZ_中介公司设置 Where 公司名称='佳信'"),
              std::vector<std::string>{"工行"});
    // Grid and table differ now: a second save finds no row.
    screen["开户银行"].type("农行");
    screen.确定.click();
    EXPECT_EQ(program.rows("Select 开户银行 From YZ_中介公司设置 Where 公司名称='佳信'"),
              std::vector<std::string>{"工行"});
    choose("G01");
    clickAgency("佳信");
    EXPECT_EQ(screen["开户银行"].text(), "工行");
}

TEST_F(Agencies, ADeletionLeavesTheCustomersAlone) {
    program.run(
        {"Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,中介公司名称) Values "
         "('9','01','中介来人','佳信')"});
    choose("G01");
    screen.删除.click();  // the blank row
    EXPECT_TRUE(program.desktop.messages.empty());
    clickAgency("佳信");
    willAnswer(Answer::yes);
    screen.删除.click();
    EXPECT_EQ(said(), "确定删除当前选择的中介公司吗？");
    EXPECT_EQ(program.rows("Select 公司名称 From YZ_中介公司设置 Where 管理处代号='01'"),
              std::vector<std::string>{"安居"});
    EXPECT_EQ(program.rows("Select 中介公司名称 From YZ_引驻客户信息"), std::vector<std::string>{"佳信"});
    EXPECT_EQ(screen["公司名称"].text(), "");
    EXPECT_EQ(screen.列表.rows(), 3);
    screen["公司名称"].type("O'Neil");
    screen.确定.click();
    clickAgency("O'Neil");
    willAnswer(Answer::yes);
    screen.删除.click();
    EXPECT_EQ(program.rows("Select 公司名称 From YZ_中介公司设置 Where 管理处代号='01'"),
              std::vector<std::string>{"安居"});
}

TEST_F(Agencies, OfficesThatCannotBeReadLeaveTheTreeWithItsRoot) {
    program.run({"Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values ('01','01')"});
    auto& again = open<Frm中介公司设置>();  // the second link repeats a key of the tree
    EXPECT_EQ(again.管理项目.roots().front()->children().size(), 1U);
}

}  // namespace
}  // namespace desk
