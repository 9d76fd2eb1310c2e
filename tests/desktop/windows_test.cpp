#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QLayout>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <cstdlib>

#include "analysis/classification.h"
#include "customers/registration.h"
#include "desktop/binding.h"
#include "desktop/layout.h"
#include "desktop/panel.h"
#include "desktop/qt_desktop.h"
#include "desktop/screen_list.h"
#include "desktop/screen_windows.h"
#include "intent/approval.h"
#include "intent/unit_map.h"
#include "session/main_window.h"
#include "support/failures.h"
#include "support/test_program.h"
#include "ui/batch.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"

namespace desk::desktop {
namespace {

/// A child with two fields. What it does in its load is told from outside.
struct Sheet : Screen {
    Sheet(std::string name, std::function<void(Sheet&)>& step)
        : Screen(std::move(name), "表", WindowKind::child, 4500, 3000), step_(step) {}
    void load() override { step_(*this); }
    void activate() override {
        if (tag == "large") maximise();
    }

    TextBox first{*this, "first"};
    TextBox second{*this, "second"};
    Button press{*this, "press", "按"};
    Timer timer{*this, "timer", 1};

  private:
    std::function<void(Sheet&)>& step_;
};

QWidget* layoutOfTest(Screen& screen) {
    auto* sheet = dynamic_cast<Sheet*>(&screen);
    if (sheet == nullptr) return layoutOf(screen);
    auto* content = layout::rows(
        {layout::plain(sheet->first), layout::plain(sheet->second), layout::plain(sheet->press)});
    layout::orderTabs(content);
    return content;
}

/// A program in real windows, without a screen to see them on.
struct Windows : testing::Test {
    Windows() {
        desktop->serve(app->screens, layoutOfTest);
        offerScreens(*app);
        for (const char* name : {"sheet", "other"})
            app->screens.offer(name, [this, name] { return std::make_unique<Sheet>(name, step); });
        app->主连接.open("Initial Catalog=':memory:';Data Source='(embedded)'", std::chrono::seconds(5));
        app->session.登录工号 = SessionRecord::superUser;
        app->session.登录岗位代号 = "0101";
        app->screens.open(MDIForm1::screenName);
        main = window<QMainWindow>(MDIForm1::screenName);
        main->resize(1093, 614);
        main->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(main));
    }

    template <class W>
    W* window(const char* name) {
        for (QWidget* each : QApplication::allWidgets())
            if (each->objectName() == name)
                if (auto* found = qobject_cast<W*>(each)) return found;
        return nullptr;
    }
    QMdiSubWindow* child(const char* name) { return window<QMdiSubWindow>(name); }
    void bring(const char* name) {
        enter([&] { app->screens.open(name); });
    }
    Sheet& open(const char* name) {
        bring(name);
        return *static_cast<Sheet*>(app->screens.loaded(name));
    }
    /// Puts it below the fields of the sheet, and shows it.
    void add(QWidget* part) {
        widget(child("sheet"), "first")->parentWidget()->layout()->addWidget(part);
        part->show();
    }
    static QWidget* widget(QWidget* in, const char* name) { return in->findChild<QWidget*>(name); }

    TestProgram parts;
    std::function<void(Sheet&)> step = [](Sheet&) {};
    std::optional<QtDesktop> desktop{std::in_place};
    std::optional<Application> app{std::in_place, *desktop, parts.platform};
    QMainWindow* main = nullptr;
};

TEST_F(Windows, TheDesktopGoesWithTheMainWindowAndAChildStillOpen) {
    open("sheet");
    bring("frmAbout");
    app.reset();
    EXPECT_EQ(child("sheet"), nullptr);
    EXPECT_EQ(window<QMainWindow>(MDIForm1::screenName), nullptr);
    desktop.reset();
    QApplication::processEvents();
}

TEST_F(Windows, AScreenThatUnloadsItselfWhileItLoadsHasNoWindowAndIsDropped) {
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

TEST_F(Windows, AHandlerThatWaitsOutlivesItsScreenWhoseTimersStop) {
    Sheet& sheet = open("sheet");
    int ticks = 0;
    int late = 0;
    bool unloaded = false;
    bool dropped = false;
    sheet.timer.tick += [&] { ++(unloaded ? late : ticks); };
    sheet.first.gone += [&] { dropped = true; };
    sheet.press.clicked += [&] {
        const ScreenWatch watch(sheet);
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
        EXPECT_FALSE(watch.isThere());
        EXPECT_FALSE(dropped);
    };
    QTest::mouseClick(widget(child("sheet"), "press"), Qt::LeftButton);
    EXPECT_EQ(late, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dropped; }));
    EXPECT_EQ(child("sheet"), nullptr);
}

TEST_F(Windows, AChildThatIsShownIsNotShownModally) {
    Sheet& sheet = open("sheet");
    EXPECT_EQ(failureOf([&] { desktop->showModally(sheet); }), 400);
    // One that was not shown is, also where it is a child, and one that has gone by itself is not waited for.
    Screen& other = app->screens.get("other");
    QTimer::singleShot(0, qApp, [&] { enter([&] { app->screens.unload(other); }); });
    enter([&] {
        desktop->showModally(other);
        desktop->showModally(other);
    });
    EXPECT_EQ(app->screens.loaded("other"), nullptr);
}

TEST_F(Windows, AModalScreenComesUpAmidTheMainWindowOrWhereItSays) {
    const auto shown = [&] {
        QRect place;
        QTimer::singleShot(0, qApp, [&] {
            place = QApplication::activeModalWidget()->frameGeometry();
            enter([&] { app->screens.unload(app->screens.get("other")); });
        });
        enter([&] { desktop->showModally(app->screens.get("other")); });
        return place;
    };
    main->move(40, 30);
    const QPoint off = shown().center() - main->geometry().center();
    // Frame and title bar count, as wide as they may be.
    EXPECT_LE(std::abs(off.x()), 4);
    EXPECT_LE(std::abs(off.y()), 30);
    main->move(-3000, -2000);
    EXPECT_EQ(shown().topLeft(), main->screen()->availableGeometry().topLeft());
    main->move(40, 30);
    step = [](Sheet& sheet) { sheet.moveTo(1500, 750); };
    EXPECT_EQ(shown().topLeft(), main->mapToGlobal(QPoint(100, 50)));
}

TEST_F(Windows, TheMainWindowComesBackInFrontOfWhatStoodThereWhenAModalScreenGoes) {
    QWidget inFront;
    QTimer::singleShot(0, qApp, [&] {
        inFront.show();
        inFront.raise();
        inFront.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&inFront));
        enter([&] { app->screens.unload(app->screens.get("other")); });
    });
    enter([&] { desktop->showModally(app->screens.get("other")); });
    EXPECT_TRUE(QTest::qWaitForWindowActive(main));
}

TEST_F(Windows, AWidgetGoesWithItsControlAndDoesNothingFromThenOn) {
    Sheet& sheet = open("sheet");
    std::optional<TextBox> editor(std::in_place, sheet, "editor");
    auto* edit = widgetFor(*editor);
    add(edit);
    edit->setFocus();
    QPointer<QWidget> held(edit);
    editor->entered += [&] { editor.reset(); };
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(sheet.control("editor"), nullptr);
    ASSERT_TRUE(held);
    EXPECT_FALSE(held->isVisible());
    QTest::keyClicks(edit, "late");
    editor.emplace(sheet, "editor");
    auto* next = widgetFor(*editor);
    add(next);
    EXPECT_EQ(widget(child("sheet"), "editor"), next);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !held; }));
}

TEST_F(Windows, AGridIsPaintedAndAskedInTheMidstOfAChange) {
    Sheet& sheet = open("sheet");
    Grid grid(sheet, "grid", "<a|<b|<c|<d");
    grid.setRows(3);
    grid.setFixedRows(2);
    grid.setMerging(Merge::free);
    grid.setMergesRow(0, true);
    for (int column = 0; column < 4; ++column) grid.setText(0, column, "x");
    auto* view = widgetFor(grid);
    add(view);
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

TEST_F(Windows, APressIsBusyUntilAPersonIsAsked) {
    const auto isBusy = [] { return QApplication::overrideCursor() != nullptr; };
    Sheet& sheet = open("sheet");
    std::vector<bool> seen;
    sheet.press.clicked += [&] {
        seen.push_back(isBusy());
        QTimer::singleShot(0, main, [&] {
            seen.push_back(isBusy());
            QApplication::activeModalWidget()->close();
        });
        desktop->messageBox({"text", "title"});
        seen.push_back(isBusy());
    };
    QTest::mouseClick(widget(child("sheet"), "press"), Qt::LeftButton);
    EXPECT_EQ(seen, std::vector<bool>({true, false, true}));
    EXPECT_FALSE(isBusy());
}

TEST_F(Windows, AChildThatComesBeforeAMaximisedOneHasTheSizeOfItsScreen) {
    open("sheet");
    child("sheet")->showMaximized();
    for (int time = 0; time < 2; ++time) {
        const Sheet& other = open("other");
        EXPECT_FALSE(child("other")->isMaximized());
        EXPECT_EQ(child("other")->widget()->width(), pixels(other.width()));
        // The buttons in the menu bar would be those of the one behind.
        EXPECT_FALSE(child("sheet")->isMaximized());
        open("sheet");
        child("sheet")->showMaximized();
        open("sheet");
        EXPECT_TRUE(child("sheet")->isMaximized());
    }
}

TEST_F(Windows, AChildThatComesBackHasTheFocusWhereItWas) {
    for (const char* size : {"", "large"}) {
        SCOPED_TRACE(size);
        step = [&](Sheet& sheet) { sheet.tag = size; };
        Sheet& sheet = open("sheet");
        auto* first = widget(child("sheet"), "first");
        first->setFocus();
        QTest::keyClicks(first, "half a");
        int told = 0;
        sheet.first.focused += [&] { ++told; };
        sheet.second.focused += [&] { ++told; };
        Sheet& other = open("other");
        open("sheet");
        QApplication::processEvents();
        EXPECT_EQ(QApplication::focusWidget(), first);
        QTest::keyClicks(QApplication::focusWidget(), " word");
        EXPECT_EQ(sheet.first.text(), "half a word");
        EXPECT_EQ(told, 0) << "it comes back, and is not entered anew";

        // By the keys that go from child to child, and when the one before it goes.
        open("other");
        child("sheet")->mdiArea()->activatePreviousSubWindow();
        QApplication::processEvents();
        EXPECT_EQ(QApplication::focusWidget(), first);
        EXPECT_EQ(told, 0);

        // A click into another field of a window at the back goes there.
        if (sheet.tag.empty()) {
            open("other");
            QTest::mouseClick(widget(child("sheet"), "second"), Qt::LeftButton);
            QApplication::processEvents();
            EXPECT_EQ(QApplication::focusWidget(), widget(child("sheet"), "second"));
        }
        enter([&] {
            app->screens.unload(sheet);
            app->screens.unload(other);
        });
        QApplication::processEvents();
    }
}

TEST_F(Windows, AChildCarriesItsTitle) {
    Sheet& sheet = open("sheet");
    EXPECT_EQ(child("sheet")->windowTitle(), "表");
    sheet.setCaption("新表");
    EXPECT_EQ(child("sheet")->windowTitle(), "新表");
}

TEST_F(Windows, ALineThatTakesItsListAwayIsItsLast) {
    Sheet& sheet = open("sheet");
    std::optional<ListBox> list(std::in_place, sheet, "list");
    list->addItem("岗位");
    auto* shown = dynamic_cast<QAbstractItemView*>(widgetFor(*list));
    add(shown);
    list->clicked += [&](int) { list.reset(); };
    QTest::mouseClick(shown->viewport(), Qt::LeftButton, {},
                      shown->visualRect(shown->model()->index(0, 0)).center());
    EXPECT_FALSE(list.has_value());
}

TEST_F(Windows, AChildShrinksWithTheMainWindow) {
    bring(Frm意向书审批::screenName);
    QMdiSubWindow* shown = child(Frm意向书审批::screenName);
    main->showNormal();
    main->resize(800, 500);
    QApplication::processEvents();
    EXPECT_LE(shown->width(), shown->mdiArea()->viewport()->width());
    EXPECT_LE(shown->height(), shown->mdiArea()->viewport()->height());
}

TEST_F(Windows, OneChildAfterAnotherOpensWholeInTheArea) {
    main->showNormal();
    main->resize(1280, 776);
    QApplication::processEvents();
    // Whatever one finds, the next has less room beside.
    for (const char* name :
         {"frmAbout", Frm客户分类统计::screenName, "frm每周来客统计分析", "frm意向金收取"}) {
        bring(name);
        QApplication::processEvents();
        const QRect area = child(name)->mdiArea()->viewport()->rect();
        EXPECT_TRUE(area.contains(child(name)->geometry())) << name << " lies at " << child(name)->y();
    }
}

TEST_F(Windows, AChildHasTheFocusInAFieldThatIsShownAsSoonAsItOpens) {
    for (const KnownScreen& known : screenList()) {
        if (known.make(*app)->kind() != WindowKind::child) continue;
        SCOPED_TRACE(known.name);
        bring(known.name);
        QApplication::processEvents();
        const QWidget* focused = QApplication::focusWidget();
        ASSERT_NE(focused, nullptr);
        EXPECT_TRUE(child(known.name)->isAncestorOf(focused) && focused->isVisible());
    }
    // No matter what else is open: Tab stays in the window that one sees.
    bring(Frm客户分类统计::screenName);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(child(Frm客户分类统计::screenName)->isAncestorOf(QApplication::focusWidget()));
}

/// Nothing is asked, and what runs in a child cannot hold it up.
TEST_F(Windows, ClosingTheMainWindowEndsTheProgram) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    open("sheet");
    EXPECT_EXIT(
        {
            main->close();
            QApplication::processEvents();
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(Windows, ACentredChildStandsInTheMiddleWithItsFrame) {
    bring("frmAbout");
    const QRect area = child("frmAbout")->mdiArea()->viewport()->rect();
    const QRect at = child("frmAbout")->geometry();
    EXPECT_LE(std::abs(at.left() - (area.width() - at.right() - 1)), 1);
    EXPECT_LE(std::abs(at.top() - (area.height() - at.bottom() - 1)), 1);
}

TEST_F(Windows, APanelTakesTheFocusKeepsItAndGivesItBackOnEscape) {
    Sheet& sheet = open("sheet");
    Panel panel(sheet, "panel", "选择");
    TextBox above(panel, "above");
    Button close(panel, "close", "关闭");
    QWidget* content = widget(child("sheet"), "first")->parentWidget();
    panelOver(content, panel, layout::rows({layout::plain(above), layout::plain(close)}));
    QWidget* shown = widget(content, "panel");
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    widget(content, "second")->setFocus();
    int entered = 0;
    sheet.second.focused += [&] { ++entered; };
    EXPECT_FALSE(shown->isVisible());

    panel.open();
    EXPECT_TRUE(shown->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), widget(content, "above"));
    EXPECT_EQ(shown->geometry().top(), content->height() / 2);
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), widget(content, "close"));
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), widget(content, "above"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), widget(content, "close"));
    // In a field beside it the key means something else.
    widget(content, "first")->setFocus();
    press(Qt::Key_Escape);
    EXPECT_TRUE(shown->isVisible());
    widget(content, "close")->setFocus();
    press(Qt::Key_Escape);
    EXPECT_FALSE(panel.isOpen());
    EXPECT_FALSE(shown->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), widget(content, "second"));
    EXPECT_EQ(entered, 0);

    // Whoever has gone elsewhere meanwhile stays there.
    panel.setAnchor(&sheet.first);
    panel.open();
    EXPECT_EQ(shown->geometry().top(), widget(content, "first")->geometry().bottom() + 1);
    widget(content, "first")->setFocus();
    panel.close();
    EXPECT_EQ(QApplication::focusWidget(), widget(content, "first"));
}

/// The main window is as large as a screen of 1366 × 768 at 125 %, less its title and a panel of the system.
TEST_F(Windows, EveryScreenShowsEachOfItsButtonsOnASmallScreen) {
    main->showNormal();
    main->resize(1093, 554);
    QApplication::processEvents();
    for (const KnownScreen& known : screenList()) {
        // A dialog may have something to say as it opens.
        if (known.make(*app)->kind() != WindowKind::child) continue;
        Screen& screen = app->screens.get(known.name);
        SCOPED_TRACE(known.name);
        enter([&] { app->screens.open(known.name); });
        QApplication::processEvents();
        QMdiSubWindow* shown = child(known.name);
        const QRect area = shown->mdiArea()->viewport()->rect();
        EXPECT_TRUE(area.contains(shown->geometry()))
            << shown->width() << " × " << shown->height() << " in " << area.width() << " × " << area.height();
        const auto everyButton = [&] {
            QApplication::processEvents();
            for (QPushButton* button : shown->widget()->findChildren<QPushButton*>()) {
                if (!button->isVisibleTo(shown)) continue;
                EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect())
                    << button->objectName().toStdString();
            }
        };
        everyButton();
        for (Control* control : screen.controls())
            if (auto* strip = dynamic_cast<TabStrip*>(control))
                for (int tab = 1; tab < static_cast<int>(strip->titles().size()); ++tab) {
                    strip->setIndex(tab);
                    everyButton();
                }
        enter([&] { app->screens.unload(screen); });
    }
}

TEST_F(Windows, AWindowOfItsOwnIsNoLargerThanTheDisplay) {
    struct Huge : Screen {
        Huge() : Screen("huge", "大", WindowKind::dialog, 90000, 90000) {}
    } huge;
    const DialogWindow window(app->screens, huge, new QWidget);
    const QSize room = window.screen()->availableSize();
    EXPECT_EQ(window.size().boundedTo(room), window.size());
}

/// A screen of 1280 × 800, less the title of the main window, has room for all that is measured out to fit
/// it.
TEST_F(Windows, WhatMustBeReadIsWholeAtTheUsualSize) {
    main->showNormal();
    main->resize(1280, 776);
    enter([&] { app->screens.open(Frm引驻客户信息登记::screenName); });
    QApplication::processEvents();
    auto& registration = app->screens.get<Frm引驻客户信息登记>();
    for (int page = 0; page < 3; ++page) {
        registration.页签.click(page);
        QApplication::processEvents();
        const Control& number = registration.pages()[static_cast<std::size_t>(page)]->登记编号;
        const QWidget* line = widget(child(Frm引驻客户信息登记::screenName), number.name().c_str());
        constexpr int frameAndMargins = 12;
        EXPECT_LE(line->fontMetrics().horizontalAdvance("<保存时自动生成编号>"),
                  line->width() - frameAndMargins)
            << page;
        if (const auto& agency = registration.pages()[static_cast<std::size_t>(page)]->中介) {
            line = widget(child(Frm引驻客户信息登记::screenName), agency->中介公司名称.name().c_str());
            EXPECT_LE(line->fontMetrics().horizontalAdvance("上海德佑房地产经纪有限责任公司"),
                      line->width() - frameAndMargins);
        }
    }
    enter([&] { app->screens.open(Frm房源一览表::screenName); });
    auto& map = app->screens.get<Frm房源一览表>();
    map.统计.show(std::vector<楼域统计>(5));
    map.地图框.setVisible(false);
    QApplication::processEvents();
    const QWidget* last = widget(child(Frm房源一览表::screenName), "统计块(4)");
    EXPECT_EQ(last->visibleRegion().boundingRect(), last->rect());
}

}  // namespace
}  // namespace desk::desktop
