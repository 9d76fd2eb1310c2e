#include "analysis/classification.h"

#include <gtest/gtest.h>

#include <QListWidget>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include "base/text.h"
#include "db/statement.h"
#include "desktop/by_hand.h"
#include "desktop/convert.h"

namespace desk::desktop {
namespace {

constexpr int leads = 200;

/// The screen in its window: two teams, the first of which has all leads but ten.
class ClassificationByHand : public ScreenByHand<Frm客户分类统计> {
  protected:
    ClassificationByHand() : ScreenByHand({1240, 640}, fill) {}

    static void fill(TestProgram& program) {
        program.run({
            "Insert Into YZ_组表 (组代号,组名称) Values ('1','一组')",
            "Insert Into YZ_组表 (组代号,组名称) Values ('2','二组')",
            "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号) Values ('1','01')",
            "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号) Values ('2','01')",
            "Insert Into YZ_中介公司设置 (管理处代号,公司名称) Values ('01','Best')",
        });
        for (int lead = 0; lead < leads; ++lead) {
            program.db().execute(sql(
                "Insert Into YZ_引驻客户信息 (登记编号,管理处代号,公司名称,企业性质,从事行业,中介公司名称) "
                "Values ('{}','01','公司{}','外资','软件','{}')",
                lead, lead, lead < 5 ? "Best" : ""));
            program.db().execute(
                sql("Insert Into YZ_引驻客户分配 (登记编号,管理处代号,组代号) Values ('{}','01','{}')", lead,
                    lead < leads - 10 ? 1 : 2));
        }
    }

    void clickLine(const Control& list, int line, Qt::KeyboardModifiers with = {}) const {
        QWidget& view = person.at(list);
        QTest::mouseClick(&viewportOf(view), Qt::LeftButton, with, lineOf(view, {line}));
    }
    void tick(const Control& box) const { Person::click(person.at(box), {8, person.at(box).height() / 2}); }
    /// Everything is marked and counted.
    void analyse() {
        screen.Combo1.pick("01 东塔");
        for (const Control* all : {&screen.Check1, &screen.Check2, &screen.Check3}) tick(*all);
        person.click(screen.Command1);
    }
    QTableView& table() const { return person.at<QTableView>(screen.MSFlexGrid1); }
    static std::string marked(const ListBox& list) { return join(list.selectedTexts(), " "); }
};

TEST_F(ClassificationByHand, TheKeyboardAloneMarksAndCounts) {
    person.press({Qt::Key_Down});
    ASSERT_EQ(screen.Combo1.code(), "01");
    person.press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Space});
    EXPECT_EQ(marked(screen.List1), "民营");
    person.press({Qt::Key_Up}, Qt::ShiftModifier);
    EXPECT_EQ(marked(screen.List1), "外资 民营");
    person.press({Qt::Key_Tab, Qt::Key_Space});
    EXPECT_EQ(marked(screen.List2), "软件 贸易");
    person.press({Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Space});
    EXPECT_EQ(marked(screen.List3), "1 一组");
    // Enter leads from the search box to what it has found, and there to the name.
    person.press({Qt::Key_Tab});
    person.type("B?st");
    person.press({Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "List4");
    person.press({Qt::Key_Return});
    EXPECT_EQ(screen.Text1.text(), "Best");
    EXPECT_EQ(Person::focused(), "List4");
    person.press({Qt::Key_Tab, Qt::Key_Return});
    EXPECT_EQ(table().model()->rowCount(), 5);
}

TEST_F(ClassificationByHand, EqualTeamsAreOneCellWhoseNameStaysInView) {
    analyse();
    ASSERT_EQ(table().model()->rowCount(), leads);
    EXPECT_EQ(table().rowSpan(0, 1), leads - 10);
    EXPECT_EQ(table().rowSpan(leads - 10, 1), 10);
    EXPECT_EQ(table().rowSpan(0, 3), 1);
    const auto saysSomething = [&] {
        const QImage seen = table().viewport()->grab().toImage();
        const int left = table().columnViewportPosition(1) + 3;
        const QColor empty = seen.pixelColor(left, 3);
        for (int x = left; x < left + table().columnWidth(1) - 6; ++x)
            for (int y = 3; y < seen.height() - 3; ++y)
                if (seen.pixelColor(x, y) != empty) return true;
        return false;
    };
    for (const int row : {0, 60, 120}) {
        table().verticalScrollBar()->setValue(row);
        EXPECT_TRUE(saysSomething()) << row;
    }
    // Another result is merged anew.
    clickLine(screen.List3, 0);
    person.click(screen.Command1);
    ASSERT_EQ(table().model()->rowCount(), 10);
    EXPECT_EQ(table().rowSpan(0, 1), 10);
}

}  // namespace
}  // namespace desk::desktop
