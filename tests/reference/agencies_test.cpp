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
    EXPECT_EQ(screen.boxes.front().text(), "");
    EXPECT_EQ(screen.列表.rows(), 3);
    screen.boxes.front().type("O'Neil");
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
