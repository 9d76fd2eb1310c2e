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
    Button run{panel, "run", "统计"};
    Grid grid{*this, "grid", "<序|<名称    |编号"};
};

TEST(FoldingPanel, GivesItsRoomToTheGridAndTakesItsShareOfANewSizeBack) {
    Filtered screen;
    QWidget* content =
        layout::folding(screen.panel, layout::plain(screen.run), layout::plain(screen.grid), {1, 3});
    content->resize(800, 300);
    const Person person(content);
    const auto place = [&](const Control& control) {
        QWidget& widget = person.at(control);
        return QRect(widget.mapTo(&person.window(), QPoint(0, 0)), widget.size());
    };
    const auto settles = [&](int width, int panel) {
        return QTest::qWaitFor([&] {
            return place(screen.grid).right() == width - 1 && qAbs(place(screen.grid).left() - panel) < 12;
        });
    };
    EXPECT_TRUE(settles(800, 200));
    const QRect open = place(screen.grid);
    person.click(screen.panel.隐藏);
    const int strip = person.at(screen.panel.显示).width();
    EXPECT_TRUE(settles(800, strip));
    EXPECT_LT(strip, 50);
    EXPECT_EQ(place(screen.panel.显示), QRect(0, 0, strip, 300));
    person.window().resize(1100, 500);
    EXPECT_TRUE(settles(1100, strip));
    person.window().resize(800, 300);
    person.click(screen.panel.显示);
    EXPECT_TRUE(QTest::qWaitFor([&] { return place(screen.grid) == open; }));
    person.window().resize(1100, 500);
    EXPECT_TRUE(settles(1100, 275));
}

}  // namespace
}  // namespace desk::desktop
