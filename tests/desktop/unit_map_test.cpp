#include "intent/unit_map.h"

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include "db/statement.h"
#include "desktop/by_hand.h"
#include "desktop/convert.h"

namespace desk::desktop {
namespace {

/// A map of eight sections with thirty free units each, in its window.
class UnitMapWindow : public ScreenByHand<Frm房源一览表> {
  protected:
    UnitMapWindow() : ScreenByHand({1240, 640}, fill) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return sizeIsTold(); }));
        screen.区域.pick("01 东塔");
    }

    static void fill(TestProgram& program) {
        program.db().begin();
        for (int section = 1; section <= 8; ++section) addSection(program.db(), section);
        program.db().commit();
    }

    static void addSection(Connection& db, int section) {
        db.execute(sql(
            "Insert Into 楼表 (L_ID,楼编号,地址1,管理处,开始日期) Values ({},'{}','{}号楼','01','2001-1-1')",
            section, section, section));
        db.execute(sql("Insert Into 楼域范围设置 (工号,L_ID) Values ('E01',{})", section));
        for (int unit = 1; unit <= 30; ++unit)
            db.execute(
                sql("Insert Into 室表 (S_ID,L_ID,室,层次,建筑面积,开始日期) Values "
                    "({},{},'{}','1',100,'2001-1-1')",
                    section * 100 + unit, section, 100 + unit));
    }

    void startPicking() {
        screen.选择房源.setVisible(true);
        screen.房源选择确定.setVisible(true);
        const int height = view().height();
        person.click(screen.选择房源);
        QTest::qWait(0);
        EXPECT_EQ(view().height(), height) << "the hint moves the map";
    }

    bool sizeIsTold() {
        return screen.地图.width() == twips(view().viewport()->width()) + Grid::scrollBarWidth;
    }
    QTableView& view() { return person.at<QTableView>(screen.地图); }
    QRect cell(int row, int column) { return view().visualRect(view().model()->index(row, column)); }
    void clickCell(int row, int column) { Person::click(*view().viewport(), cell(row, column).center()); }
    /// Where the marker's widget lies in the view of the map.
    QRect shownAt(const Control& marker) {
        const QWidget& widget = person.at(marker);
        return QRect(widget.mapTo(&view(), QPoint()) - view().viewport()->pos(), widget.size());
    }
};

TEST_F(UnitMapWindow, MarkersLieExactlyOverTheirCellsAndStayWhenTheMapScrolls) {
    startPicking();
    const int columns = screen.地图.columns();
    EXPECT_GT(columns, 10);
    EXPECT_LE(cell(1, columns - 1).right(), view().viewport()->width());
    const std::vector<std::pair<int, int>> picked{{1, 0}, {1, columns - 1}, {2, 1}, {4, 7}};
    for (const auto& [row, column] : picked) clickCell(row, column);
    ASSERT_EQ(screen.选中.标记.count(), 4);
    for (int i = 0; i < 4; ++i) {
        // The cell, and the line that parts it from the next.
        const QRect wanted =
            cell(picked[static_cast<std::size_t>(i)].first, picked[static_cast<std::size_t>(i)].second);
        EXPECT_EQ(shownAt(screen.选中.标记[i]), wanted.adjusted(0, 0, 1, 1)) << i;
    }
    const QRect before = shownAt(screen.选中.标记[3]);
    view().verticalScrollBar()->setValue(100);
    EXPECT_EQ(screen.地图.scrollTop(), 1500);
    EXPECT_EQ(shownAt(screen.选中.标记[3]), before);
    EXPECT_TRUE(person.at(screen.选中.标记[3]).isVisible());
    clickCell(8, 3);
    ASSERT_EQ(screen.选中.标记.count(), 5);
    EXPECT_EQ(shownAt(screen.选中.标记[4]), cell(8, 3).adjusted(0, 0, 1, 1));
}

TEST_F(UnitMapWindow, TheButtonsOfTheMouseCancelAndTell) {
    startPicking();
    clickCell(1, 0);
    clickCell(1, 1);
    clickCell(1, 2);
    person.click(screen.选中.标记[1], Qt::RightButton);
    QWidget& info = person.at(screen.信息.面板);
    ASSERT_TRUE(info.isVisible());
    const QWidget& marker = person.at(screen.选中.标记[1]);
    const QPoint corner = marker.mapTo(&person.window(), QPoint(marker.width(), 0));
    EXPECT_EQ(info.mapTo(&person.window(), QPoint()), corner);
    person.click(screen.选中.标记[1]);
    EXPECT_FALSE(info.isVisible());
    EXPECT_EQ(screen.选中.标记.count(), 2);
    EXPECT_EQ(shownAt(screen.选中.标记[1]), cell(1, 2).adjusted(0, 0, 1, 1));
    EXPECT_EQ(screen.选中.标记[1].text(), "103");
    QTest::mousePress(&person.at(screen.选中.标记[0]), Qt::LeftButton);
    QTest::mouseRelease(&person.at(screen.选中.标记[0]), Qt::LeftButton, {}, QPoint(-20, 5));
    EXPECT_EQ(screen.选中.标记.count(), 2);
}

TEST_F(UnitMapWindow, TheInformationLiesWhereThereIsRoomForIt) {
    const auto place = [&](int row, int column) {
        clickCell(row, column);
        person.click(screen.突出显示);
        const QWidget& info = person.at(screen.信息.面板);
        const QRect light(person.at(screen.突出显示).mapTo(&person.window(), QPoint()),
                          person.at(screen.突出显示).size());
        const QRect at(info.mapTo(&person.window(), QPoint()), info.size());
        return std::string(at.left() == light.right() + 1   ? "right "
                           : at.right() == light.left() - 1 ? "left "
                                                            : "? ") +
               (at.top() == light.top()         ? "down"
                : at.bottom() == light.bottom() ? "up"
                                                : "?");
    };
    EXPECT_EQ(place(1, 0), "right down");
    EXPECT_EQ(place(1, screen.地图.columns() - 1), "left down");
    // The lowest row that is wholly in view.
    int low = 1;
    while (cell(low + 1, 0).bottom() < view().viewport()->height()) ++low;
    if (screen.地图.text(low, 0) == screen.地图.text(low, 1)) --low;
    EXPECT_EQ(place(low, 0), "right up");
    view().verticalScrollBar()->setValue(50);
    EXPECT_FALSE(person.at(screen.突出显示).isVisible());
}

TEST_F(UnitMapWindow, DrawsAgainWhereThereIsAnotherWidth) {
    const int before = screen.地图.columns();
    person.window().resize(1000, 640);
    EXPECT_TRUE(QTest::qWaitFor([&] { return sizeIsTold(); }));
    EXPECT_LT(screen.地图.columns(), before);
    EXPECT_EQ(view().model()->columnCount(), screen.地图.columns());
    EXPECT_EQ(view().horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(screen.地图.rows(), 16);
}

TEST_F(UnitMapWindow, TilesComeScrollAndGo) {
    person.click(screen.统计信息);
    EXPECT_FALSE(view().isVisible());
    ASSERT_EQ(screen.统计.块.count(), 8);
    const auto top = [&](int tile) { return person.at(screen.统计.块[tile]).y(); };
    EXPECT_EQ(top(0), 0);
    EXPECT_EQ(top(2), pixels(2 * (统计块::height + 60)));
    const Canvas& pie = screen.统计.块[0].饼图;
    EXPECT_TRUE(QTest::qWaitFor([&] { return pie.width() > 0; }));
    EXPECT_EQ(pie.point(1300, 1200), rgb(253, 205, 140));
    person.at<QScrollBar>(screen.统计.滚动条).setValue(2);
    EXPECT_EQ(top(2), 0);
    person.click(screen.统计信息);
    EXPECT_TRUE(view().isVisible());
    EXPECT_FALSE(person.at(screen.统计.框).isVisible());
    EXPECT_EQ(screen.control("饼图(0)"), nullptr);
}

}  // namespace
}  // namespace desk::desktop
