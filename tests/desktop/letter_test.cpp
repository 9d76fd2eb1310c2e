#include "intent/letter.h"

#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QLineEdit>
#include <QTest>

#include "desktop/by_hand.h"

namespace desk::desktop {
namespace {

/// The letters' screen as it is laid out, on office 01 with one letter.
class LetterByHand : public ScreenByHand<Frm意向书信息> {
  protected:
    LetterByHand() : ScreenByHand({1100, 640}, fill) { screen.管理项目.setIndex(0); }

    static void fill(TestProgram& program) {
        program.run(
            {"Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,租赁单元,租赁面积,提交日期) "
             "Values ('1','01','甲公司','[A座]101',80.5,'2011-3-1')",
             "Insert Into YZ_跟进状态设置 (状态编号,状态名称) Values ('1','初访')",
             "Insert Into YZ_引驻客户信息 (登记编号,管理处代号,公司名称) Values ('9','01','乙公司')",
             "Insert Into YZ_引驻客户跟进记录 (登记编号,管理处代号,跟进状态编号) Values ('9','01','1')"});
    }
    TextBox& field(std::string_view column) const { return screen.信息[column]; }
};

TEST_F(LetterByHand, TheCalendarFloatsBelowTheDayThatItIsFor) {
    QWidget& day = person.at(field("租赁结束日期"));
    EXPECT_FALSE(person.at(screen.日期按钮).isVisible());
    day.setFocus();
    const QWidget& button = person.at(screen.日期按钮);
    ASSERT_TRUE(button.isVisible());
    const QRect at(day.mapTo(&person.window(), QPoint()), day.size());
    EXPECT_TRUE(at.contains(button.geometry()));
    EXPECT_GE(button.geometry().right(), at.right() - 3);
    person.click(screen.日期按钮);
    auto& calendar = person.at<QCalendarWidget>(screen.日历.日历);
    ASSERT_TRUE(calendar.isVisible());
    EXPECT_EQ(calendar.selectedDate(), QDate(2011, 3, 5));
    calendar.showNextMonth();
    person.press({Qt::Key_Escape});
    ASSERT_FALSE(calendar.isVisible());
    person.click(screen.日期按钮);
    EXPECT_EQ(calendar.monthShown(), 3) << "it stayed where it was leafed to";
    screen.日历.日历.clickDay({2011, 4, 9});
    EXPECT_EQ(person.at<QLineEdit>(field("租赁结束日期")).text(), "2011/4/9");
    EXPECT_FALSE(calendar.isVisible());
    // A field that has a day opens at it, whatever was picked for another; one that has none leaves it.
    const auto opensAt = [&](std::string_view column, const char* typed) {
        person.at(field(column)).setFocus();
        field(column).type(typed);
        person.click(screen.日期按钮);
        const QDate shown(calendar.yearShown(), calendar.monthShown(), calendar.selectedDate().day());
        person.press({Qt::Key_Escape});
        return shown;
    };
    EXPECT_EQ(opensAt("装修起始日期", "2012-7-31"), QDate(2012, 7, 31));
    EXPECT_EQ(opensAt("租赁结束日期", "2011/4/9"), QDate(2011, 4, 9));
    EXPECT_EQ(opensAt("装修结束日期", ""), QDate(2011, 4, 9));
    EXPECT_EQ(opensAt("装修结束日期", "下月"), QDate(2011, 4, 9));
    person.at(field("租金单价")).setFocus();
    EXPECT_FALSE(button.isVisible());
}

/// The units of a stored letter are not read back, so that a look at the empty list must not empty its text.
TEST_F(LetterByHand, ALookAtTheUnitsChangesNothing) {
    screen.意向书.click(*screen.意向书.find("YM1"));
    const auto openUnits = [&] {
        person.at(field("租赁单元")).setFocus();
        person.click(screen.选择单元);
        ASSERT_TRUE(screen.单元.面板.isOpen());
    };
    const auto units = [&] { return field("租赁单元").text() + "|" + field("租赁面积").text(); };
    openUnits();
    person.press({Qt::Key_Escape});
    EXPECT_FALSE(screen.单元.面板.isOpen());
    EXPECT_EQ(units(), "[A座]101|80.5");
    EXPECT_EQ(person.at<QLineEdit>(field("租赁单元")).text(), "[A座]101");
    // What was picked, or taken away again, is what a save will reserve.
    openUnits();
    screen.单元列表.append({"B座", "7", 12.5, 7});
    person.press({Qt::Key_Escape});
    EXPECT_EQ(units(), "[B座]7|12.5");
    openUnits();
    person.press({Qt::Key_Escape});
    field("租赁单元").type("B座七层");
    openUnits();
    person.press({Qt::Key_Escape});
    EXPECT_EQ(units(), "B座七层|12.5");
    openUnits();
    screen.单元列表.removeUnsaved();
    person.press({Qt::Key_Escape});
    EXPECT_EQ(units(), "|0");
}

TEST_F(LetterByHand, ANumberThatIsDemandedWaitsSelected) {
    person.click(screen.新增);
    EXPECT_EQ(Person::focused(), "登记编号");
    EXPECT_EQ(person.at<QLineEdit>(screen.信息.登记编号).selectedText(), "<请输入登记编号>");
    person.type("A7");
    EXPECT_EQ(screen.信息.登记编号.text(), "A7");
    person.click(screen.新增);
    person.click(screen.Check5);
    person.click(screen.新增);
    auto& number = person.at<QLineEdit>(screen.信息.登记编号);
    EXPECT_TRUE(number.isReadOnly());
    EXPECT_EQ(number.text(), "<保存时自动生成编号>");
    // The box decides as long as a letter is being typed: what stands for a number must not be saved as one.
    person.click(screen.Check5);
    EXPECT_FALSE(number.isReadOnly());
    EXPECT_EQ(number.text(), "");
}

}  // namespace
}  // namespace desk::desktop
