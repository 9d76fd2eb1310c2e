#include <QAbstractItemView>
#include <QPointer>
#include <QTimer>

#include "desktop/sheet_windows.h"
#include "ui/batch.h"
#include "ui/choices.h"
#include "ui/grid.h"

namespace desk::desktop {
namespace {

/// What goes while something of its own still runs.
using Going = SheetWindows;

TEST_F(Going, TheDesktopTakesTheMainWindowAndAChildThatIsStillOpen) {
    open("sheet");
    bring("frmAbout");
    app.reset();
    EXPECT_EQ(child("sheet"), nullptr);
    EXPECT_EQ(window<QMainWindow>(MDIForm1::screenName), nullptr);
    desktop.reset();
    QApplication::processEvents();
}

/// Nothing is asked, and what runs in a child cannot hold it up.
TEST_F(Going, TheMainWindowEndsTheProgram) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    open("sheet");
    EXPECT_EXIT(
        {
            main->close();
            QApplication::processEvents();
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(Going, AScreenThatUnloadsItselfWhileItLoadsHasNoWindowAndIsDropped) {
    bool dropped = false;
    step = [&](Sheet& sheet) {
        sheet.first.gone += [&] { dropped = true; };
        app->screens.unload(sheet);
        QApplication::processEvents();
        EXPECT_FALSE(dropped) << "its own handler still runs";
    };
    enter([&] { app->screens.open("sheet"); });
    EXPECT_EQ(child("sheet"), nullptr);
    // No window has been closed by it.
    EXPECT_TRUE(QTest::qWaitFor([&] { return dropped; }));
}

TEST_F(Going, AScreenIsOutlivedByItsHandlerThatWaitsAndItsTimersStop) {
    Sheet& sheet = open("sheet");
    int ticks = 0;
    int late = 0;
    bool unloaded = false;
    bool dropped = false;
    sheet.timer.tick += [&] { ++(unloaded ? late : ticks); };
    sheet.first.gone += [&] { dropped = true; };
    sheet.press.clicked += [&] {
        while (ticks == 0) desktop->letEventsRun();
        app->screens.unload(sheet);
        unloaded = true;
        sheet.timer.setEnabled(false);
        sheet.timer.setEnabled(true);
        // Another timer of that pace has ticked twice: this one would have, too.
        int others = 0;
        QTimer other;
        QObject::connect(&other, &QTimer::timeout, [&] { ++others; });
        other.start(sheet.timer.interval());
        while (others < 3) desktop->letEventsRun();
        EXPECT_FALSE(dropped);
    };
    QTest::mouseClick(at(sheet.press), Qt::LeftButton);
    EXPECT_EQ(late, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dropped; }));
    EXPECT_EQ(child("sheet"), nullptr);
}

TEST_F(Going, AFieldDoesNothingMoreAndGivesItsNameToTheNext) {
    Sheet& sheet = open("sheet");
    std::optional<TextBox> editor(std::in_place, sheet, "editor");
    const QPointer<QWidget> edit = added(*editor);
    edit->setFocus();
    editor->entered += [&] { editor.reset(); };
    QTest::keyClick(edit, Qt::Key_Return);
    ASSERT_TRUE(edit);
    EXPECT_FALSE(edit->isVisible());
    QTest::keyClicks(edit, "late");
    editor.emplace(sheet, "editor");
    auto* next = added(*editor);
    EXPECT_EQ(at(*editor), next);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !edit; }));
}

TEST_F(Going, ALineThatTakesItsListAwayIsItsLast) {
    std::optional<ListBox> list(std::in_place, open("sheet"), "list");
    list->addItem("岗位");
    auto* shown = added<QAbstractItemView>(*list);
    list->clicked += [&](int) { list.reset(); };
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, {},
                      shown->visualRect(shown->model()->index(0, 0)).center());
    EXPECT_FALSE(list.has_value());
}

TEST_F(Going, AGridIsPaintedWhileItsRowsAndColumnsComeAndGo) {
    Sheet& sheet = open("sheet");
    Grid grid(sheet, "grid", "<a|<b|<c|<d");
    grid.setRows(3);
    grid.setFixedRows(2);
    grid.setMerging(Merge::free);
    grid.setMergesRow(0, true);
    for (int column = 0; column < 4; ++column) grid.setText(0, column, "x");
    auto* view = added(grid);
    view->grab();
    {
        const Batch change(grid);
        grid.setColumns(1);
        grid.setRows(1);
        view->grab();
        desktop->letEventsRun();
        grid.setColumns(6);
        view->grab();
    }
    view->grab();
    EXPECT_EQ(grid.columns(), 6);
}

}  // namespace
}  // namespace desk::desktop
