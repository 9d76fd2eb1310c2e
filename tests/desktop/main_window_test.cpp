#include <gtest/gtest.h>

#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <algorithm>
#include <set>

#include "desktop/convert.h"
#include "desktop/main_window_view.h"
#include "desktop/mnemonics.h"
#include "desktop/screen_windows.h"
#include "session/main_window.h"
#include "support/test_program.h"

namespace desk::desktop {
namespace {

/// The main window over a program that works on a database in memory.
class MainWindow : public testing::Test {
  protected:
    TestProgram program;
    MDIForm1& main = opened();
    MainWindowView view{main};

  private:
    MDIForm1& opened() {
        program.openDatabase();
        program.app.连接字符串 = "Initial Catalog='/data/hongxu.db';Data Source='(embedded)'";
        return program.app.screens.get<MDIForm1>();
    }
};

TEST_F(MainWindow, TellsItsDatabaseWhatWasSavedAndOpensTheFirstMenuThatCanBeUsedOnF10) {
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    EXPECT_EQ(main.状态栏.panel(2), "hongxu.db");
    view.notify("已保存 2026-000854");
    EXPECT_EQ(view.statusBar()->currentMessage(), "已保存 2026-000854");
    EXPECT_TRUE(view.statusBar()->findChild<QWidget*>("状态栏")->isVisible());
    QTest::keyClick(&view, Qt::Key_F10);
    ASSERT_NE(view.menuBar()->activeAction(), nullptr);
    EXPECT_EQ(withoutMnemonic(view.menuBar()->activeAction()->text()), "其它模块");
}

TEST_F(MainWindow, LettersOfTheMenuBarAndOfTheButtonsDiffer) {
    std::multiset<QString> letters;
    const auto note = [&](const QString& caption) {
        const QString shown = withMnemonic(caption);
        EXPECT_EQ(withoutMnemonic(shown), caption);
        EXPECT_NE(shown, caption);
        letters.insert(shown.section('&', 1).left(1));
    };
    for (const MenuEntry& entry : main.entries())
        if (entry.parent() == nullptr) note(text(entry.caption()));
    for (const char* button : {"新增", "取消", "确定", "删除", "退出", "终止", "输出", "浏览", "登录"})
        note(button);
    for (const QString& letter : letters) EXPECT_EQ(letters.count(letter), 1U) << letter.toStdString();
}

TEST_F(MainWindow, NoChildIsClosedByTheKeyThatOtherProgramsUseInsideTexts) {
    QMdiArea area;
    struct Empty : Screen {
        Empty() : Screen("form", "登记", WindowKind::child, 9000, 6000) {}
    } form;
    ChildWindow child(program.app.screens, form, new QWidget, area);
    for (const QAction* entry : child.systemMenu()->actions())
        EXPECT_FALSE(entry->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::Key_W)));
}

TEST_F(MainWindow, TheMenuShowsWhatItsEntriesSay) {
    const auto actions = view.findChildren<QAction*>();
    // A menu of the bar, and one of its entries.
    for (const char* caption : {"客户跟进管理", "客户跟进分配"}) {
        MenuEntry& entry = *main.entry(caption);
        const QAction& action = **std::find_if(actions.begin(), actions.end(), [&](const QAction* each) {
            return withoutMnemonic(each->text()) == caption;
        });
        for (const bool on : {false, true}) {
            entry.setVisible(on);
            entry.setEnabled(on);
            EXPECT_EQ(action.isVisible(), on) << caption;
            EXPECT_EQ(action.isEnabled(), on) << caption;
        }
    }
}

}  // namespace
}  // namespace desk::desktop
