#include "intent/approval_path.h"

#include <gtest/gtest.h>

#include "support/test_program.h"

namespace desk {
namespace {

/// Two paths, 东塔 all at once by two steps, 裙楼 in turn and without any, and one of an office that has
/// gone.
class ApprovalPath : public testing::Test {
  protected:
    ApprovalPath() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.run(
            {"Insert Into 设置管理处 (GYD_DH,GYD_Name,终止日期) Values ('9','旧楼','2010-1-1')",
             "Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('01','招商部')",
             "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0101','专员','01')",
             "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0102','主管','01')",
             "Insert Into YZ_意向书审批路径设置 (审批路径代号,审批路径名称,管理处代号,单级流转) Values "
             "('L9','旧','9',0)",
             "Insert Into YZ_意向书审批路径设置 (审批路径代号,审批路径名称,管理处代号,单级流转) Values "
             "('L1','东','01',1)",
             "Insert Into YZ_意向书审批路径设置 (审批路径代号,审批路径名称,管理处代号,单级流转) Values "
             "('L10','裙','10',0)",
             "Insert Into YZ_意向书审批路径 (意向书审批ID,审批环节序号,部门代号,岗位代号) Values "
             "(2,1,'01','0101'),(2,2,'01','0102')"});
        program.enter();
        program.app.screens.offer<Frm意向书审批路径设置>(program.app);
        program.app.screens.open(Frm意向书审批路径设置::screenName);
    }

    Frm意向书审批路径设置& screen() { return program.app.screens.get<Frm意向书审批路径设置>(); }
    审批环节& steps() { return screen().环节; }
    void clickPath(const std::string& code) {
        Grid& list = screen().路径列表;
        for (int row = list.fixedRows(); row < list.rows(); ++row)
            if (list.text(row, 1) == code) return list.click(row, 1);
        FAIL() << "no path " << code;
    }

    TestProgram program;
};

TEST_F(ApprovalPath, ShowsNothingOfThePathBefore) {
    clickPath("L1");
    EXPECT_TRUE(screen().单级流转.checked());
    EXPECT_EQ(screen().管理项目.text(), "01 东塔");
    EXPECT_EQ(steps().部门.text(), "01 招商部");
    screen().新增.click();
    clickPath("L10");
    EXPECT_EQ(screen().新增.caption(), "新增");
    EXPECT_FALSE(screen().单级流转.checked());
    EXPECT_EQ(steps().部门.text(), "") << "it has no step";
    clickPath("L9");
    EXPECT_EQ(screen().管理项目.index(), -1) << "its office is not offered any more";
    EXPECT_EQ(screen().路径名称.text(), "旧");
}

TEST_F(ApprovalPath, APathWithoutAnIdCannotBeEdited) {
    clickPath("L1");
    Grid& list = screen().路径列表;
    list.setText(1, 5, "");
    program.fault.statements.clear();
    list.click(1, 1);
    EXPECT_EQ(program.desktop.messages.back().icon, Icon::information);
    EXPECT_EQ(program.desktop.takeMessage(), "没有可以编辑的信息,请重新查询!");
    EXPECT_TRUE(program.fault.statements.empty());
    screen().确定.click();
    EXPECT_EQ(program.desktop.takeMessage(), "没有可以编辑的信息,请重新查询!");
}

TEST_F(ApprovalPath, TheListGrowsWithANewPathAndClosesUpBehindOneThatGoes) {
    Grid& list = screen().路径列表;
    const double narrow = list.columnWidth(2);
    screen().新增.click();
    screen().路径代号.type("L2");
    screen().路径名称.type(std::string(120, 'x'));
    screen().管理项目.pick("02 西塔");
    screen().确定.click();
    EXPECT_GT(list.columnWidth(2), narrow);
    clickPath("L9");
    program.desktop.answers = {Answer::yes};
    screen().删除.click();
    ASSERT_EQ(list.rows(), 4);
    for (int row = 1; row < list.rows(); ++row) EXPECT_EQ(list.text(row, 0), std::to_string(row));
    EXPECT_EQ(list.text(1, 1), "L1");
}

TEST_F(ApprovalPath, TheTreeOfDepartmentsGoesWithWhatItWasOpenedFor) {
    clickPath("L1");
    const auto isOpen = [&] { return steps().部门面板.isOpen(); };
    steps().选择部门.click();
    ASSERT_TRUE(isOpen());
    steps().列表.click(2, 1);
    EXPECT_FALSE(isOpen());
    steps().选择部门.click();
    steps().新增.click();
    EXPECT_FALSE(isOpen());
    steps().选择部门.click();
    clickPath("L10");
    EXPECT_FALSE(isOpen());
}

TEST_F(ApprovalPath, StepsMoveAgainWhereTheNewOneIsNotListed) {
    const auto movable = [&] { return steps().上移.enabled() && steps().下移.enabled(); };
    clickPath("L10");
    steps().新增.click();
    EXPECT_FALSE(movable());
    steps().选择部门.click();
    steps().部门树.click(*steps().部门树.find("$01"));
    steps().岗位.pick("0101 专员");
    // The department has gone by now, so that the step is stored and not listed.
    steps().部门.setText("02 财务部");
    steps().确定.click();
    EXPECT_EQ(steps().列表.rows(), 1);
    EXPECT_EQ(steps().新增.caption(), "新增");
    EXPECT_TRUE(movable());
}

TEST_F(ApprovalPath, TakingTheLastStepAwayEndsTheTypingOfAnother) {
    clickPath("L1");
    program.desktop.answers = {Answer::yes, Answer::yes};
    steps().删除.click();
    steps().新增.click();
    steps().删除.click();
    EXPECT_EQ(steps().列表.rows(), 1);
    EXPECT_EQ(steps().新增.caption(), "新增");
    EXPECT_TRUE(steps().上移.enabled());
    EXPECT_EQ(steps().环节序号.text() + steps().部门.text(), "");
}

TEST_F(ApprovalPath, TheListIsHiddenWhileItFillsAndMovingIsWork) {
    std::string seen;
    program.fault.seen = [&](std::string_view statement) {
        if (statement.starts_with("SELECT YZ_意向书审批路径.ID,"))
            seen += steps().列表.visible() ? "shown " : "hidden ";
        if (statement.starts_with("UPDATE")) seen += program.desktop.busyDepth > 0 ? "busy " : "idle ";
    };
    clickPath("L1");
    EXPECT_TRUE(steps().列表.visible());
    steps().下移.click();
    EXPECT_EQ(seen, "hidden busy busy hidden ");
    EXPECT_EQ(program.desktop.busyDepth, 0);
}

}  // namespace
}  // namespace desk
