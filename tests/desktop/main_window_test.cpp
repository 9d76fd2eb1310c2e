#include <gtest/gtest.h>

#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
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
    MainWindow() {
        program.openDatabase();
        program.app.session = {"E01", "林晓", "01", "招商部", "0101", "招商专员", "A", "业务", "P1", "专员"};
        program.app.连接字符串 = "Initial Catalog='/data/hongxu.db';Data Source='(embedded)'";
        main = &program.app.screens.get<MDIForm1>();
    }

    TestProgram program;
    MDIForm1* main;
};

TEST_F(MainWindow, TheStatusBarTellsWhoWorksOnWhatAndWhatWasSaved) {
    EXPECT_EQ(main->状态栏.panel(0), "E01 林晓");
    EXPECT_EQ(main->状态栏.panel(1), "招商部 招商专员");
    EXPECT_EQ(main->状态栏.panel(2), "hongxu.db");
    MainWindowView view(*main);
    view.show();
    view.notify("已保存 2026-000854");
    EXPECT_EQ(view.statusBar()->currentMessage(), "已保存 2026-000854");
    EXPECT_TRUE(view.statusBar()->findChild<QWidget*>("状态栏")->isVisible());
}

TEST_F(MainWindow, F10OpensTheFirstMenuThatCanBeUsed) {
    MainWindowView view(*main);
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
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
    for (const MenuEntry& entry : main->entries())
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
    main->entry("客户跟进分配")->setVisible(false);
    main->entry("意向金收取")->setEnabled(false);
    const MainWindowView view(*main);
    const auto action = [&](const char* caption) {
        for (const QAction* each : view.findChildren<QAction*>())
            if (withoutMnemonic(each->text()) == caption) return each;
        throw std::logic_error(caption);
    };
    EXPECT_FALSE(action("客户跟进分配")->isVisible());
    EXPECT_FALSE(action("意向金收取")->isEnabled());
    EXPECT_TRUE(action("客户信息登记")->isVisible());
    main->entry("客户跟进分配")->setVisible(true);
    main->entry("统计报表")->setVisible(false);
    main->entry("客户跟进管理")->setEnabled(false);
    EXPECT_TRUE(action("客户跟进分配")->isVisible());
    EXPECT_FALSE(action("统计报表")->isVisible());
    EXPECT_FALSE(action("客户跟进管理")->isEnabled());
}

}  // namespace
}  // namespace desk::desktop
