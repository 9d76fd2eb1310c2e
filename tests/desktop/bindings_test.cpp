#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

#include "base/failure.h"
#include "desktop/edge.h"
#include "desktop/form.h"
#include "desktop/person.h"
#include "desktop/screen_windows.h"

namespace desk::desktop {
namespace {

TEST(Bindings, ATimerTicksWhileItIsEnabled) {
    Form form;
    Timer timer(form, "timer", 10);
    int ticks = 0;
    timer.tick += [&] { ++ticks; };
    timer.setEnabled(false);
    QObject host;
    runTimers(form, &host);
    QTest::qWait(60);
    EXPECT_EQ(ticks, 0);
    timer.setEnabled(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 2; }));
}

TEST(Bindings, ACanvasTellsInTwipsWhereItIsPressed) {
    Form form;
    const Person person(shown({&form.canvas}));
    std::vector<double> at;
    form.canvas.pressed += [&](double x, double y) { at = {x, y}; };
    Person::click(person.at(form.canvas), QPoint(4, 10));
    EXPECT_EQ(at, (std::vector<double>{60, 150}));
}

/// Presses away the box that is up, so that the process can go on to its end.
void pressAwayTheBox() {
    QTimer::singleShot(50, qApp, [] {
        if (QWidget* box = QApplication::activeModalWidget()) box->close();
    });
}

TEST(Edge, AFailureThatNobodyTrapsIsShownAndEndsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto endsWith = [](const RuntimeFailure& failure, const char* told) {
        const auto fail = [&failure] {
            pressAwayTheBox();
            enter([&failure] { throw failure; });
        };
        EXPECT_EXIT(fail(), testing::ExitedWithCode(1), told);
    };
    endsWith({failure::noCurrentRow, "BOF 或 EOF 中有一个是真"}, "运行时错误 '3021'.*BOF 或 EOF");
    RuntimeFailure refused(failure::wrongStatement, "对象名 '无' 无效。");
    refused.setStatement("Select * From 无");
    endsWith(refused, "无效。\n语句：Select \\* From 无");
}

}  // namespace
}  // namespace desk::desktop

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
