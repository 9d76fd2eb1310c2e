#include "analysis/weekly_analysis.h"

#include <gtest/gtest.h>

#include <QProgressDialog>
#include <QPushButton>
#include <QTableView>
#include <QTreeView>

#include "desktop/by_hand.h"
#include "desktop/in_windows.h"

namespace desk::desktop {
namespace {

void addLeads(TestProgram& program) {
    program.run(
        {"Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,登记日期,媒体,需求面积) Values "
         "('1','01','引驻来人','2011-3-5','报纸',100)",
         "Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,登记日期,媒体,需求面积) Values "
         "('2','01','引驻来人','2011-3-4','网络',80)"});
}

/// The screen of the visits as it is laid out, before a person.
class WeeklyByHand : public ScreenByHand<Frm每周来客统计分析> {
  protected:
    WeeklyByHand() : ScreenByHand({1000, 600}, addLeads) {}

    std::string ticked() const {
        std::string keys;
        for (const TreeNode* node : screen.统计项目.roots())
            if (node->checked()) keys += std::string(node->key()) + " ";
        return keys;
    }
    QTreeView& tree() const { return person.at<QTreeView>(screen.统计项目); }
    /// The middle of the node's box.
    QPoint boxOf(int row) const {
        const QRect line = tree().visualRect(tree().model()->index(row, 0));
        return {line.left() + tree().style()->pixelMetric(QStyle::PM_IndicatorWidth) / 2 + 2,
                line.center().y()};
    }
};

TEST_F(WeeklyByHand, ViewsAreTickedAtTheirBoxesAndByTheSpaceBar) {
    Person::click(viewportOf(tree()), boxOf(1));
    EXPECT_EQ(ticked(), "QU ");
    // A click on the text goes there, and no further.
    Person::click(viewportOf(tree()), lineOf(tree(), {3}));
    EXPECT_EQ(ticked(), "QU ");
    EXPECT_EQ(screen.统计项目.selected()->key(), "XZ");
    person.press({Qt::Key_Space});
    EXPECT_EQ(ticked(), "QU XZ ");
    person.press({Qt::Key_Up, Qt::Key_Up, Qt::Key_Space});
    EXPECT_EQ(ticked(), "XZ ");
    Person::click(viewportOf(tree()), boxOf(7), Qt::RightButton);
    EXPECT_EQ(ticked(), "XZ ");
}

TEST_F(WeeklyByHand, IsCountedByKeysAlone) {
    EXPECT_EQ(Person::focused(), "选择区域");
    person.press({Qt::Key_Down});
    EXPECT_EQ(screen.选择区域.text(), "01 东塔");
    // The days as they are typed, part after part.
    person.press({Qt::Key_Return, Qt::Key_Home});
    person.type("2011-03-04");
    person.press({Qt::Key_Return});
    EXPECT_EQ(isoDay(screen.开始日期.value()), "2011-03-04");
    EXPECT_EQ(Person::focused(), "结束日期");
    person.press({Qt::Key_Return, Qt::Key_Return, Qt::Key_Return});
    person.press({Qt::Key_Space, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "统计");
    EXPECT_EQ(screen.统计结果.text(1, 1), "报纸");
}

TEST_F(WeeklyByHand, TitleRowsAreBoldAndColouredAndNumbersStandRightBelowTheirTitles) {
    screen.选择区域.pick("01 东塔");
    screen.全部.click();
    person.click(screen.统计);
    const auto& view = person.at<QTableView>(screen.统计结果);
    const auto* model = view.model();
    int titles = 0;
    for (int row = 0; row < model->rowCount(); ++row)
        for (int column = 0; column < model->columnCount(); ++column) {
            const auto cell = model->index(row, column);
            const bool bold = cell.data(Qt::FontRole).value<QFont>().bold();
            const QVariant back = cell.data(Qt::BackgroundRole);
            EXPECT_EQ(bold, back.value<QColor>() == QColor(201, 167, 167)) << row << "," << column;
            titles += bold ? 1 : 0;
            for (const QVariant& alignment :
                 {cell.data(Qt::TextAlignmentRole),
                  model->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole)})
                EXPECT_EQ((alignment.toInt() & Qt::AlignRight) != 0, column > 1) << row << "," << column;
            QFont font = view.font();
            font.setBold(bold);
            EXPECT_LE(QFontMetrics(font).horizontalAdvance(cell.data().toString()), view.columnWidth(column));
        }
    EXPECT_EQ(titles, 7 * 4);
    // Spare width goes to the names alone.
    const int numbers = view.columnWidth(2) + view.columnWidth(3);
    const int before = view.columnWidth(1);
    person.window().resize(person.window().width() + 600, person.window().height());
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.columnWidth(1) > before; }));
    EXPECT_EQ(view.columnWidth(2) + view.columnWidth(3), numbers);
}

/// The screen in the program's own windows.
class WeeklyInWindows : public InWindows {
  protected:
    WeeklyInWindows()
        : InWindows(layoutOf, [](TestProgram& program) {
              addOfficesAndDictionaries(program);
              addLeads(program);
          }) {
        bring(Frm每周来客统计分析::screenName);
    }
    ~WeeklyInWindows() override {
        parts.fault.seen = [](std::string_view) {};
    }

    QWidget* at(const Control& control) { return widget(main, control); }
    static QProgressDialog* progress() {
        return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    }

    Frm每周来客统计分析& form = app->screens.get<Frm每周来客统计分析>();
};

TEST_F(WeeklyInWindows, ALongCountShowsHowFarItIsAndCanBeStopped) {
    form.选择区域.pick("01 东塔");
    form.开始日期.pick({2011, 1, 5});
    form.统计项目.tick(*form.统计项目.find("MT"), true);
    form.统计项目.tick(*form.统计项目.find("LR"), true);
    int days = 0;
    bool shown = false;
    parts.fault.seen = [&](std::string_view statement) {
        if (!statement.starts_with("Select Count(登记日期)") || ++days != 10) return;
        shown = QTest::qWaitFor([] { return progress() != nullptr; });
        if (!shown) return;
        EXPECT_EQ(progress()->labelText(), "正在统计：每天来人量");
        EXPECT_EQ(progress()->maximum(), 60);
        QTest::mouseClick(progress()->findChild<QPushButton*>(), Qt::LeftButton);
    };
    at(form.统计)->setFocus();
    QTest::keyClick(at(form.统计), Qt::Key_Return);
    EXPECT_TRUE(shown);
    EXPECT_EQ(days, 10);
    EXPECT_EQ(form.统计结果.rows(), 3);
    EXPECT_EQ(progress(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    // The hand is where it was: the same key counts again.
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == at(form.统计); }));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(form.统计结果.rows(), 3 + 1 + 60);
}

TEST_F(WeeklyInWindows, TheScreenMayBeClosedInTheMidstOfACount) {
    form.选择区域.pick("01 东塔");
    form.开始日期.pick({2010, 3, 5});
    form.全部.click();
    int days = 0;
    parts.fault.seen = [&](std::string_view statement) {
        if (!statement.starts_with("Select Count(登记日期)") || ++days != 10) return;
        child(Frm每周来客统计分析::screenName)->close();
    };
    QTest::mouseClick(at(form.统计), Qt::LeftButton);
    EXPECT_EQ(days, 10);
    EXPECT_EQ(app->screens.loaded(Frm每周来客统计分析::screenName), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return child(Frm每周来客统计分析::screenName) == nullptr; }));
}

}  // namespace
}  // namespace desk::desktop
