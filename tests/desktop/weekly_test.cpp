#include "analysis/weekly_analysis.h"

#include <gtest/gtest.h>

#include <QProgressDialog>
#include <QPushButton>

#include "desktop/in_windows.h"

namespace desk::desktop {
namespace {

/// The screen in the program's own windows.
class WeeklyInWindows : public InWindows {
  protected:
    WeeklyInWindows() : InWindows(layoutOf, addOfficesAndDictionaries) {
        bring(Frm每周来客统计分析::screenName);
        form.选择区域.pick("01 东塔");
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
