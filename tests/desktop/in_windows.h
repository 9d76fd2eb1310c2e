#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <optional>

#include "desktop/convert.h"
#include "desktop/edge.h"
#include "desktop/qt_desktop.h"
#include "desktop/screen_list.h"
#include "session/main_window.h"
#include "support/test_program.h"

namespace desk::desktop {

/// A program in its real windows, without a display to see them on, and on a database in memory.
class InWindows : public testing::Test {
  protected:
    explicit InWindows(
        QtDesktop::LayoutOf layouts = layoutOf,
        const std::function<void(TestProgram&)>& fill = [](TestProgram&) {}) {
        desktop->serve(app->screens, layouts);
        offerScreens(*app);
        parts.openDatabase();
        fill(parts);
        app->主连接 = std::move(parts.app.主连接);
        app->session = {"E01", "林晓", "01", "招商部", "0101", "招商专员", "A", "业务", "P1", "专员"};
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
    QRect area() { return main->findChild<QMdiArea*>()->viewport()->rect(); }
    void bring(const char* name) {
        enter([&] { app->screens.open(name); });
        QApplication::processEvents();
    }
    void unload(Screen& screen) {
        enter([&] { app->screens.unload(screen); });
    }
    static QWidget* widget(QWidget* in, const Control& control) {
        return in->findChild<QWidget*>(text(control.name()));
    }

    TestProgram parts;
    std::optional<QtDesktop> desktop{std::in_place};
    std::optional<Application> app{std::in_place, *desktop, parts.platform};
    QMainWindow* main = nullptr;
};

}  // namespace desk::desktop
