#include "ui/folding_frame.h"

#include <gtest/gtest.h>

#include <QTest>

#include "desktop/layout.h"
#include "desktop/person.h"
#include "ui/grid.h"
#include "ui/screen.h"

namespace desk::desktop {
namespace {

struct Filtered : Screen {
    Filtered() : Screen("filtered", "表", WindowKind::child, 9000, 4500) {}

    FoldingFrame panel{*this, "panel", "统计条件"};
    TextBox filter{panel, "filter"};
    Button run{panel, "run", "统计"};
    Grid grid{*this, "grid", "<序|<名称    |编号"};
};

QWidget* laidOut(Filtered& screen) {
    auto* filters = layout::rows({layout::plain(screen.filter), layout::plain(screen.run)}, {1, 0});
    QWidget* window = layout::folding(screen.panel, filters, layout::plain(screen.grid), {1, 3});
    layout::orderTabs(window);
    window->resize(800, 300);
    return window;
}

class FoldingPanel : public testing::Test {
  protected:
    QRect place(const Control& control) const {
        QWidget& widget = person.at(control);
        return {widget.mapTo(&person.window(), QPoint(0, 0)), widget.size()};
    }
    int width() const { return person.window().width(); }

    Filtered screen;
    Person person{laidOut(screen)};
};

TEST_F(FoldingPanel, GivesItsRoomToTheGridAndLeavesAStripThatBringsItBack) {
    const QRect open = place(screen.grid);
    EXPECT_FALSE(person.at(screen.panel.显示).isVisible());
    person.click(screen.panel.隐藏);
    EXPECT_TRUE(screen.panel.isFolded());
    EXPECT_FALSE(person.at(screen.panel).isVisible());
    const auto spread = [&] { return place(screen.grid).left() < 50; };
    EXPECT_TRUE(QTest::qWaitFor(spread));
    EXPECT_EQ(place(screen.grid).right(), width() - 1);
    EXPECT_EQ(place(screen.panel.显示).left(), 0);
    EXPECT_EQ(place(screen.panel.显示).height(), person.window().height());
    EXPECT_LT(place(screen.panel.显示).right(), place(screen.grid).left());
    EXPECT_FALSE(screen.filter.usable());

    person.click(screen.panel.显示);
    EXPECT_FALSE(screen.panel.isFolded());
    EXPECT_TRUE(QTest::qWaitFor([&] { return place(screen.grid) == open; }));
    EXPECT_TRUE(person.at(screen.filter).isVisible());
    EXPECT_FALSE(person.at(screen.panel.显示).isVisible());
}

TEST_F(FoldingPanel, IsFoldedAndShownAgainByTheSameKey) {
    screen.filter.focus();
    person.press({Qt::Key_Tab, Qt::Key_Tab});
    EXPECT_EQ(Person::focused(), "隐藏");
    person.press({Qt::Key_Space});
    EXPECT_EQ(Person::focused(), "显示");
    EXPECT_TRUE(screen.panel.isFolded());
    person.press({Qt::Key_Tab});
    EXPECT_EQ(Person::focused(), "grid");
    person.backTab();
    person.press({Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "隐藏");
    EXPECT_FALSE(screen.panel.isFolded());
    person.press({Qt::Key_Tab});
    EXPECT_EQ(Person::focused(), "grid");
}

TEST_F(FoldingPanel, StaysAsItIsWhileTheWindowChangesItsSize) {
    screen.filter.setText("大厦");
    person.click(screen.panel.隐藏);
    person.window().resize(1100, 500);
    EXPECT_TRUE(QTest::qWaitFor([&] { return place(screen.grid).right() == width() - 1; }));
    EXPECT_TRUE(screen.panel.isFolded());
    EXPECT_LT(place(screen.grid).left(), 50);
    person.click(screen.panel.显示);
    const auto parted = [&] {
        return qAbs(place(screen.panel).width() * 3 - place(screen.grid).width()) < 6;
    };
    EXPECT_TRUE(QTest::qWaitFor(parted)) << place(screen.panel).width() << " " << place(screen.grid).width();
    EXPECT_EQ(screen.filter.text(), "大厦");
}

}  // namespace
}  // namespace desk::desktop
