#include "intent/approval.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "desktop/by_hand.h"
#include "intent/approval_path.h"

namespace desk::desktop {
namespace {

/// Two departments with a position each, and a path of one step for office 01 by which letter 1 is asked.
class ApprovalByHand : public ByHand {
  protected:
    ApprovalByHand() : ByHand(fill) {}

    static void fill(TestProgram& program) {
        program.run(
            {"Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('01','招商部'),('02','财务部')",
             "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values "
             "('0101','主管','01'),('0201','会计','02')",
             "Insert Into YZ_意向书审批路径设置 (审批路径代号,审批路径名称,管理处代号) Values "
             "('L1','东塔路径','01')",
             "Insert Into YZ_意向书审批路径 (意向书审批ID,审批环节序号,部门代号,岗位代号) Values "
             "(1,1,'01','0101')",
             "Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方) Values ('7','01','甲公司')",
             "Insert Into YZ_意向书审批情况 (意向书ID,环节序号,部门代号,岗位代号) Values (1,1,'01','0101')"});
    }
};

TEST_F(ApprovalByHand, TabAndEnterGoThroughAPathAndItsSteps) {
    auto& screen = loaded<Frm意向书审批路径设置>();
    const Person person(layoutOf(screen));
    clickLine(person, screen.路径列表, {0}, 1);
    EXPECT_EQ(screen.路径代号.text(), "L1");
    screen.路径代号.focus();
    EXPECT_EQ(wayByTab(person, 15),
              "路径代号 路径名称 管理项目 备注 单级流转 确定 新增 删除 环节列表 上移 下移 环节序号 选择部门 "
              "岗位 环节.确定 ");
    // Behind the last field Enter comes to 确定, which it presses.
    screen.环节.环节序号.focus();
    person.press({Qt::Key_A, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "环节.确定");
    person.press({Qt::Key_Return});
    EXPECT_NE(program.desktop.takeMessage().find("错误号"), std::string::npos);
    // A path that has been taken away leaves its steps grey.
    EXPECT_TRUE(person.at(screen.环节.框).isEnabled());
    program.desktop.answers = {Answer::yes, Answer::yes};
    person.click(screen.环节.删除);
    person.click(screen.删除);
    EXPECT_FALSE(person.at(screen.环节.框).isEnabled());
}

TEST_F(ApprovalByHand, ADepartmentIsPickedFromATreeThatEscapeCloses) {
    auto& screen = loaded<Frm意向书审批路径设置>();
    const Person person(layoutOf(screen));
    person.window().resize(1000, 640);
    clickLine(person, screen.路径列表, {0}, 1);
    EXPECT_TRUE(person.at<QLineEdit>(screen.环节.部门).isReadOnly());
    const QWidget& panel = person.at(screen.环节.部门面板);
    person.click(screen.环节.选择部门);
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(Person::focused(), "部门树");
    EXPECT_EQ(screen.环节.部门.text(), "01 招商部") << "the focus has picked";
    person.press({Qt::Key_Escape});
    EXPECT_FALSE(panel.isVisible());
    EXPECT_EQ(Person::focused(), "选择部门");
    EXPECT_EQ(screen.环节.部门.text(), "01 招商部");
    person.click(screen.环节.选择部门);
    clickLine(person, screen.环节.部门树, {1});
    EXPECT_FALSE(panel.isVisible());
    EXPECT_EQ(person.at<QLineEdit>(screen.环节.部门).text(), "02 财务部");
    ASSERT_EQ(screen.环节.岗位.count(), 1);
    EXPECT_EQ(screen.环节.岗位.index(), -1);
}

TEST_F(ApprovalByHand, TheDeskIsReadAndDecidedOnByKeys) {
    auto& screen = loaded<Frm意向书审批>();
    const Person person(layoutOf(screen));
    person.window().resize(1100, 640);
    person.at(screen.待审批).setFocus();
    EXPECT_EQ(screen.信息.id(), "") << "the focus has selected";
    person.press({Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(person.at<QLineEdit>(screen.信息["承租方"]).text(), "甲公司");
    EXPECT_TRUE(person.at<QLineEdit>(screen.信息["承租方"]).isReadOnly());
    // What others have said lies over the letter, and the list of letters stays in view.
    person.click(screen.他人审批情况);
    const QWidget& others = person.at(screen.他人面板);
    EXPECT_TRUE(others.isVisible());
    EXPECT_EQ(screen.他人意见.列表.rows(), 2);
    EXPECT_GE(others.mapTo(&person.window(), QPoint()).x(), person.at(screen.待审批).geometry().right());
    person.click(screen.关闭);
    screen.您的审批意见.focus();
    person.type("ok");
    person.press({Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "您的审批意见") << "a text of several lines keeps Enter";
    person.press({Qt::Key_Tab, Qt::Key_Return});
    EXPECT_EQ(program.rows("Select 审批内容,同意 From YZ_意向书审批情况"),
              std::vector<std::string>{"ok\r\n|1"});
}

}  // namespace
}  // namespace desk::desktop
