#include "intent/letter.h"

#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QLineEdit>
#include <QTest>

#include "desktop/person.h"
#include "desktop/screen_list.h"
#include "support/test_program.h"

namespace desk::desktop {
namespace {

/// The letters' screen as it is laid out, on office 01 with one letter.
class LetterByHand : public testing::Test {
  protected:
    LetterByHand() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.run(
            {"Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,提交日期) Values "
             "('1','01','甲公司','2011-3-1')",
             "Insert Into YZ_跟进状态设置 (状态编号,状态名称) Values ('1','初访')",
             "Insert Into YZ_引驻客户信息 (登记编号,管理处代号,公司名称) Values ('9','01','乙公司')",
             "Insert Into YZ_引驻客户跟进记录 (登记编号,管理处代号,跟进状态编号) Values ('9','01','1')"});
        offerScreens(program.app);
        program.enter();
        screen = &program.app.screens.get<Frm意向书信息>();
        screen->管理项目.setIndex(0);
    }

    TextBox& field(std::string_view column) const { return screen->信息[column]; }

    TestProgram program;
    Frm意向书信息* screen = nullptr;
};

TEST_F(LetterByHand, TabAndEnterGoThroughItAsItIsRead) {
    const Person person(layoutOf(*screen));
    person.window().resize(1100, 640);
    screen->信息.登记编号.focus();
    std::string way;
    for (int i = 0; i < 16; ++i) {
        way += Person::focused() + " ";
        // Enter leads on from a field; from a box or a button only Tab does.
        const bool typed = qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr;
        person.press({typed ? Qt::Key_Return : Qt::Key_Tab});
        if (Person::focused() == "选择承租方") person.press({Qt::Key_Tab});
    }
    EXPECT_EQ(way,
              "登记编号 Check5 承租方 租赁单元 租赁面积 租赁起始日期 租赁结束日期 租金单价 月租金 "
              "物业管理费单价 月物业管理费 付款方式 递延方式 物业管理费意向金 租金意向金 意向金合计 ");
    field("申请说明").focus();
    person.press({Qt::Key_Tab});
    EXPECT_EQ(Person::focused(), "确定");
}

TEST_F(LetterByHand, PanelsTakeTheFocusAndGiveItBack) {
    const Person person(layoutOf(*screen));
    const auto fromAndBack = [&](const Control& button, const Panel& panel) {
        person.click(button);
        EXPECT_TRUE(panel.isOpen()) << panel.name();
        EXPECT_TRUE(person.at(panel).isVisible());
        EXPECT_TRUE(person.at(panel).isAncestorOf(QApplication::focusWidget())) << Person::focused();
        person.press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab});
        EXPECT_TRUE(person.at(panel).isAncestorOf(QApplication::focusWidget())) << Person::focused();
        person.press({Qt::Key_Escape});
        EXPECT_FALSE(panel.isOpen());
        EXPECT_FALSE(person.at(panel).isVisible());
    };
    fromAndBack(screen->选择承租方, screen->客户.面板);
    EXPECT_EQ(Person::focused(), "选择承租方");
    person.at(field("租赁单元")).setFocus();
    ASSERT_TRUE(person.at(screen->选择单元).isVisible());
    fromAndBack(screen->选择单元, screen->单元.面板);
    EXPECT_EQ(Person::focused(), "租赁单元");
    person.at(field("租赁面积")).setFocus();
    EXPECT_FALSE(person.at(screen->选择单元).isVisible());

    screen->意向书.click(*screen->意向书.find("YM1"));
    ASSERT_EQ(screen->提交.caption(), "审批情况");
    fromAndBack(screen->提交, screen->审批面板);
    // It lies over the lower half, and is as wide as the screen.
    person.click(screen->提交);
    const QWidget& panel = person.at(screen->审批面板);
    EXPECT_EQ(panel.width(), person.window().width());
    EXPECT_EQ(panel.geometry().top(), person.window().height() / 2);
    person.click(screen->审批关闭);
    EXPECT_FALSE(panel.isVisible());
}

TEST_F(LetterByHand, TheTenantIsPickedBelowItsField) {
    const Person person(layoutOf(*screen));
    person.window().resize(1100, 640);
    person.click(screen->选择承租方);
    screen->客户.跟进状态.pick("1 初访");
    QWidget& tenant = person.at(field("承租方"));
    EXPECT_GE(person.at(screen->客户.面板).mapTo(&person.window(), QPoint()).y(),
              tenant.mapTo(&person.window(), QPoint(0, tenant.height())).y());
    QWidget& list = person.at(screen->客户.列表);
    Person::click(viewportOf(list), lineOf(list, {0}, 1));
    person.click(screen->客户.确定);
    EXPECT_EQ(field("承租方").text() + field("承租方").tag, "乙公司1");
    EXPECT_FALSE(screen->客户.面板.isOpen());
}

TEST_F(LetterByHand, TheCalendarFloatsBelowTheDayThatItIsFor) {
    const Person person(layoutOf(*screen));
    person.window().resize(1100, 640);
    QWidget& day = person.at(field("租赁结束日期"));
    EXPECT_FALSE(person.at(screen->日期按钮).isVisible());
    day.setFocus();
    const QWidget& button = person.at(screen->日期按钮);
    ASSERT_TRUE(button.isVisible());
    const QRect at(day.mapTo(&person.window(), QPoint()), day.size());
    EXPECT_TRUE(at.contains(button.geometry()));
    EXPECT_GE(button.geometry().right(), at.right() - 3);
    person.click(screen->日期按钮);
    auto& calendar = person.at<QCalendarWidget>(screen->日历.日历);
    ASSERT_TRUE(calendar.isVisible());
    EXPECT_EQ(calendar.selectedDate(), QDate(2011, 3, 5));
    screen->日历.日历.clickDay({2011, 4, 9});
    EXPECT_EQ(person.at<QLineEdit>(field("租赁结束日期")).text(), "2011/4/9");
    EXPECT_FALSE(calendar.isVisible());
    // The wheel turns no field that it only passes.
    person.wheel(screen->管理项目);
    EXPECT_EQ(screen->管理项目.index(), 0);
    person.at(field("租金单价")).setFocus();
    EXPECT_FALSE(button.isVisible());
}

TEST_F(LetterByHand, ANumberThatIsDemandedWaitsSelected) {
    const Person person(layoutOf(*screen));
    person.click(screen->新增);
    EXPECT_EQ(Person::focused(), "登记编号");
    EXPECT_EQ(person.at<QLineEdit>(screen->信息.登记编号).selectedText(), "<请输入登记编号>");
    person.type("A7");
    EXPECT_EQ(screen->信息.登记编号.text(), "A7");
    person.click(screen->新增);
    person.click(screen->Check5);
    person.click(screen->新增);
    EXPECT_TRUE(person.at<QLineEdit>(screen->信息.登记编号).isReadOnly());
}

}  // namespace
}  // namespace desk::desktop
