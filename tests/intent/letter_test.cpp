#include "intent/letter.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/test_program.h"

namespace desk {
namespace {

/// The letters' screen on office 01, in a program of one seat.
class Letter : public testing::Test {
  protected:
    Letter() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.run(
            {"Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,租赁单元,租赁面积) Values "
             "('1','01','甲','[A座]1',10)",
             "Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方) Values ('2','01','乙')",
             "Insert Into YZ_意向书单元信息 (意向书ID,单元ID) Values (1,1)",
             "Insert Into YZ_意向书单元信息 (意向书ID,单元ID,终止日期) Values (1,2,'2011-1-1')"});
        program.enter();
        program.app.screens.offer<Frm意向书信息>(program.app);
        program.app.screens.open(Frm意向书信息::screenName);
        screen().管理项目.pick("01 东塔");
    }

    Frm意向书信息& screen() { return program.app.screens.get<Frm意向书信息>(); }
    TextBox& field(std::string_view column) { return screen().信息[column]; }
    void clickLetter(const std::string& number) {
        screen().意向书.click(*screen().意向书.find("YM" + number));
    }
    void choose(std::initializer_list<int> units) {
        for (const int unit : units)
            screen().单元列表.append({unit < 10 ? "A座" : "B座", std::to_string(unit), unit + 0.1, unit});
    }
    std::string unitRow(int row) {
        std::string all;
        for (int column = 0; column < screen().单元列表.columns(); ++column)
            all += screen().单元列表.text(row, column) + "|";
        return all;
    }
    std::vector<std::string> reservations() {
        return program.rows("Select 意向书ID,单元ID,设置日期,终止日期 From YZ_意向书单元信息 Order By ID");
    }
    long failureOf(Button& button) {
        try {
            button.click();
        } catch (const RuntimeFailure& failure) {
            return failure.number();
        }
        return 0;
    }

    TestProgram program;
};

TEST_F(Letter, UnitsAreReservedWithItAndNamedInIt) {
    auto& list = screen().单元列表;
    clickLetter("2");
    EXPECT_EQ(list.rows(), 1);
    field("租赁起始日期").type("2011-4-1");
    screen().选择单元.setVisible(true);
    screen().选择单元.click();
    ASSERT_TRUE(screen().单元.面板.isOpen());
    choose({2, 3, 11});
    screen().单元.关闭.click();
    EXPECT_FALSE(screen().单元.面板.isOpen());
    EXPECT_EQ(field("租赁单元").text(), "[A座]2，3，[B座]11");
    EXPECT_EQ(field("租赁面积").text(), "16.3");
    program.fault.statements.clear();
    screen().确定.click();
    EXPECT_EQ(program.fault.statements[2],
              "Select * From YZ_意向书单元信息 Where 单元ID In(2,3,11) AND 终止日期 is Null");
    EXPECT_EQ(reservations(), (std::vector<std::string>{"1|1||", "1|2||2011-01-01", "2|2|2011-04-01|",
                                                        "2|3|2011-04-01|", "2|11|2011-04-01|"}));
    EXPECT_EQ(unitRow(3), "3|B座|11|11.1|11|5|");
    // What has been saved is not asked for again, and another letter leaves the list as it is.
    screen().确定.click();
    EXPECT_EQ(reservations().size(), 5U);
    clickLetter("1");
    EXPECT_EQ(list.rows(), 4);
    EXPECT_EQ(field("租赁单元").text(), "[A座]1");
    // Without a first day the reservation has none either.
    choose({4});
    screen().确定.click();
    EXPECT_EQ(reservations().back(), "1|4||");
    EXPECT_TRUE(program.desktop.messages.empty());
}

TEST_F(Letter, AUnitInUseKeepsAllOfThemAway) {
    clickLetter("2");
    choose({3, 1});
    screen().单元.面板.open();
    screen().单元.关闭.click();
    program.fault.statements.clear();
    screen().确定.click();
    EXPECT_EQ(
        program.desktop.takeMessage(),
        "您所选择的单元中存在已经被使用的单元，请核对！\r\n您重新进入房源选择，重新选择后再按确定按钮保存");
    // The letter is saved and names them; the tree is not read again.
    EXPECT_TRUE(program.fault.statements.back().starts_with("Select * From YZ_意向书单元信息"));
    EXPECT_EQ(program.rows("Select 租赁单元,租赁面积 From YZ_意向书信息 Where ID=2"),
              std::vector<std::string>{"[A座]3，1|4.2"});
    EXPECT_EQ(reservations().size(), 2U);
    EXPECT_TRUE(program.desktop.notices.empty());
    // The unit stays in use when its letter goes.
    clickLetter("1");
    program.desktop.answers = {Answer::yes};
    screen().删除.click();
    EXPECT_EQ(reservations().size(), 2U);
    clickLetter("2");
    screen().确定.click();
    EXPECT_EQ(program.desktop.messages.size(), 2U);
}

TEST_F(Letter, AUnitIsTakenBackAtOnce) {
    clickLetter("2");
    choose({3, 4});
    screen().确定.click();
    choose({5});
    screen().单元.面板.open();
    screen().单元.删除单元.click();
    EXPECT_TRUE(program.desktop.messages.empty()) << "no unit is the current one";
    screen().单元列表.click(1, 1);
    program.desktop.answers = {Answer::no, Answer::yes, Answer::yes, Answer::yes};
    screen().单元.删除单元.click();
    EXPECT_EQ(program.desktop.messages.back().text, "确定要删除对应单元吗？");
    EXPECT_EQ(program.desktop.messages.back().buttons, Buttons::yesNo);
    EXPECT_EQ(screen().单元列表.rows(), 4);
    program.fault.statements.clear();
    screen().单元.删除单元.click();
    EXPECT_EQ(program.fault.statements, std::vector<std::string>{"Delete FROM YZ_意向书单元信息 Where ID=3"});
    EXPECT_EQ(unitRow(1), "1|A座|4|4.1|4|4|");
    EXPECT_EQ(unitRow(2), "2|A座|5|5.1|5||");
    // One that was never saved cannot be taken back.
    screen().单元列表.click(2, 1);
    EXPECT_EQ(failureOf(screen().单元.删除单元), failure::wrongStatement);
    EXPECT_EQ(screen().单元列表.rows(), 3);
    EXPECT_EQ(reservations().size(), 3U);
    screen().单元列表.removeUnsaved();
    screen().单元列表.click(1, 1);
    screen().单元.删除单元.click();
    EXPECT_EQ(screen().单元列表.rows(), 1);
    screen().单元.关闭.click();
    EXPECT_EQ(field("租赁单元").text() + "|" + field("租赁面积").text(), "|0");
}

/// What a text cannot be converted to is refused field by field, so the first that is refused tells the
/// order.
TEST_F(Letter, WritesItsFieldsInTheirOrder) {
    clickLetter("2");
    const std::vector<std::string> converted = {
        "租赁面积",     "租赁起始日期",     "租赁结束日期", "租金单价",   "月租金",       "物业管理费单价",
        "月物业管理费", "物业管理费意向金", "租金意向金",   "意向金合计", "装修起始日期", "装修结束日期"};
    std::vector<std::string> order;
    for (const auto& column : converted) field(column).type("无" + column);
    screen().信息["承租方"].tag = "无ID";
    const auto refused = [&] {
        try {
            screen().确定.click();
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.number(), failure::badConversion);
            return failure.description();
        }
        return std::string();
    };
    EXPECT_NE(refused().find("'无ID'"), std::string::npos);
    screen().信息["承租方"].tag.clear();
    for (const auto& column : converted) {
        EXPECT_NE(refused().find("'无" + column + "'"), std::string::npos) << column;
        const std::string sum = field("意向金合计").text();
        field(column).type("");
        field("意向金合计").type(column == "意向金合计" ? "" : sum);
    }
    EXPECT_EQ(refused(), "");
    EXPECT_EQ(program.rows("Select 承租方 From YZ_意向书信息 Where ID=2"), std::vector<std::string>{"乙"});
}

/// A number is a letter of the chosen office alone, and nothing is sent off that is not on the screen.
TEST_F(Letter, ActsOnTheLetterOnTheScreenAlone) {
    const auto nothingComesOf = [&](Button& button) {
        program.fault.statements.clear();
        button.click();
        EXPECT_TRUE(program.fault.statements.empty()) << button.name();
        EXPECT_TRUE(program.desktop.messages.empty()) << button.name();
        EXPECT_EQ(program.desktop.notices, std::vector<std::string>{"请先选择意向书"});
        program.desktop.notices.clear();
    };
    nothingComesOf(screen().提交);
    program.run({"Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方) Values ('1','02','丙')"});
    clickLetter("1");
    screen().管理项目.pick("02 西塔");
    nothingComesOf(screen().确定);
    nothingComesOf(screen().提交);
    EXPECT_EQ(program.rows("Select 承租方 From YZ_意向书信息 Where 管理处代号='02'"),
              std::vector<std::string>{"丙"});
    clickLetter("1");
    field("免租期").type("半月");
    screen().确定.click();
    EXPECT_EQ(program.desktop.notices, std::vector<std::string>{"已保存 1"});
    program.desktop.notices.clear();
    screen().意向书.click(*screen().意向书.roots().front());
    nothingComesOf(screen().提交);
    clickLetter("1");
    screen().新增.click();
    screen().新增.click();
    nothingComesOf(screen().提交);
    clickLetter("1");
    program.desktop.answers = {Answer::yes};
    screen().删除.click();
    program.desktop.messages.clear();
    nothingComesOf(screen().提交);
    // A new letter may be typed before its office is chosen, and be sent off when it has been saved.
    screen().新增.click();
    screen().信息.登记编号.type("7");
    screen().管理项目.pick("01 东塔");
    screen().确定.click();
    screen().管理项目.pick("02 西塔");
    screen().信息.登记编号.type("8");
    program.desktop.notices.clear();
    screen().确定.click();
    EXPECT_EQ(program.desktop.notices, std::vector<std::string>{"已保存 8"});
    screen().新增.click();
    program.desktop.answers = {Answer::yes};
    screen().提交.click();
    EXPECT_EQ(program.desktop.takeMessage(), "尚未设置本管理项目的意向书审批路径，请先设置路径！");
}

/// Another seat that saves the same number between two looks leaves two letters of it: both can be reached.
TEST_F(Letter, TwoOfOneNumberAreTwoNodes) {
    program.run({"Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方) Values ('2','01','丙')"});
    screen().管理项目.setIndex(-1);
    screen().管理项目.pick("01 东塔");
    const auto& letters = screen().意向书.roots().front()->children();
    ASSERT_EQ(letters.size(), 3U);
    EXPECT_EQ(letters[1]->text(), "2 乙");
    EXPECT_EQ(letters[2]->text(), "2 丙");
    EXPECT_EQ(letters[2]->image(), "Y");
    EXPECT_EQ(screen().意向书.roots().front()->image(), "Y");
    EXPECT_EQ(screen().意向书.roots().front()->key(), "");
    screen().意向书.click(*letters[2]);
    EXPECT_EQ(screen().信息.登记编号.text(), "2");
}

/// In turn one is asked, also where a path has got two steps of the first number.
TEST_F(Letter, OnlyOneIsAskedFirstAndThePersonIsToldThatItIsSent) {
    program.run({"Insert Into YZ_意向书审批路径设置 (审批路径代号,管理处代号,单级流转) Values ('L','01',0)",
                 "Insert Into YZ_意向书审批路径 (意向书审批ID,审批环节序号,部门代号,岗位代号) Values "
                 "(1,1,'01','0101'),(1,1,'02','0201'),(1,2,'03','0301')"});
    clickLetter("2");
    program.desktop.answers = {Answer::yes};
    screen().提交.click();
    EXPECT_EQ(program.rows("Select 意向书ID,环节序号,部门代号 From YZ_意向书审批情况"),
              std::vector<std::string>{"2|1|01"});
    EXPECT_EQ(program.desktop.notices, std::vector<std::string>{"已提交 2"});
}

TEST_F(Letter, ASavedOneIsBroughtIntoViewUnselected) {
    std::string revealed;
    screen().意向书.revealAsked += [&](const TreeNode& node) { revealed = node.text(); };
    screen().新增.click();
    screen().信息.登记编号.type(" 31 ");
    field("承租方").type("丁");
    screen().确定.click();
    EXPECT_EQ(revealed, "31 丁");
    EXPECT_EQ(screen().意向书.selected(), nullptr);
}

}  // namespace
}  // namespace desk
