#include "money/tax_invoice.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "desktop/in_windows.h"
#include "desktop/person.h"
#include "money/tax_desk.h"

namespace desk::desktop {
namespace {

TEST(TaxInvoiceForm, IsGoneThroughAsItIsRead) {
    税控台 desk;
    auto& screen = desk.open();
    const Person person(layoutOf(screen));
    auto& form = screen.样张;
    form.票据本.focus();
    std::string order = Person::focused();
    for (int i = 0; i < 40 && Person::focused() != "关闭"; ++i) {
        person.press({Qt::Key_Tab});
        order += " " + Person::focused();
    }
    EXPECT_EQ(order,
              "票据本 空白票据 付款单位 开票日期 经营项目1 单价1 数量1 金额1 经营项目2 单价2 数量2 金额2 "
              "经营项目3 单价3 数量3 金额3 备注 开票人 打印发票 关闭");
    // Enter goes the same way, and presses the button that it comes to.
    form.备注.focus();
    person.press({Qt::Key_Return, Qt::Key_Return});
    EXPECT_EQ(Person::focused(), "打印发票");
    desk.files.present.clear();
    person.press({Qt::Key_Return});
    EXPECT_EQ(desk.desktop.takeMessage(), "未找到税控软件，请确认是否安装了税控发票打印软件");
    EXPECT_FALSE(person.at(screen.打印发票).isEnabled() || person.at(screen.关闭).isEnabled());
}

TEST(TaxInvoiceForm, ShowsWhoCannotPrintAndWhatWentWrong) {
    税控台 desk;
    desk.run({"Delete From SKOperator"});
    auto& screen = desk.open();
    const Person person(layoutOf(screen));
    EXPECT_FALSE(person.at(screen.打印发票).isEnabled());
    EXPECT_TRUE(person.at(screen.打印发票).isVisible());
    EXPECT_FALSE(person.at(screen.出现错误).isVisible());
    const int before = person.at(screen.样张.付款单位).mapTo(&person.window(), QPoint()).y();
    screen.出现错误.setVisible(true);
    EXPECT_TRUE(person.at(screen.出现错误).isVisible());
    QApplication::processEvents();
    EXPECT_EQ(person.at(screen.样张.付款单位).mapTo(&person.window(), QPoint()).y(), before);
}

TEST(TaxInvoiceForm, TheRecoveryTakesTheFocusAndKeepsIt) {
    税控台 desk;
    desk.isRunning();
    auto& screen = desk.open();
    const Person person(layoutOf(screen));
    desk.desktop.answers = {Answer::no};
    screen.打印发票.focus();
    person.press({Qt::Key_Return});
    ASSERT_TRUE(person.at(screen.恢复.面板).isVisible());
    EXPECT_EQ(Person::focused(), "选项0");
    std::string order;
    for (int i = 0; i < 7; ++i) {
        person.press({Qt::Key_Tab});
        order += " " + Person::focused();
    }
    EXPECT_EQ(order, " 选项1 选项2 选项3 重新打印 退票 取消收款 确定");
    person.press({Qt::Key_Escape});
    EXPECT_TRUE(person.at(screen.恢复.面板).isVisible());
    person.press({Qt::Key_Return});
    EXPECT_FALSE(person.at(screen.恢复.面板).isVisible());
    EXPECT_TRUE(person.at(screen.关闭).isEnabled());
    person.click(screen.关闭);
    EXPECT_FALSE(desk.isOpen());
}

/// The screen in its own modal window, on the real desktop of the program.
class TaxInvoiceWindow : public InWindows {
  protected:
    TaxInvoiceWindow() : InWindows(layoutOf, [](TestProgram& program) { 加税控台(program.db()); }) {
        parts.programs.windows = {"税控软件", "税控发票打印"};
    }

    /// Shows the screen as its caller does, and lets `act` go on in front of its window; closes it
    /// afterwards.
    void show(const std::function<void(Frm税控发票打印&, QWidget&)>& act) {
        enter([&] {
            auto& screen = app->screens.get<Frm税控发票打印>();
            screen.tag = "意向金收取";
            screen.样张.票据本.pick(0);
            const ScreenWatch watch(screen);
            QTimer::singleShot(0, qApp, [&] {
                act(screen, *QApplication::activeModalWidget());
                if (watch.isThere()) enter([&] { app->screens.unload(screen); });
            });
            app->desktop.showModally(screen);
        });
        QApplication::processEvents();
    }
    /// Lets `act` meet the next box.
    void atBox(const std::function<void(QMessageBox&)>& act) {
        auto* looking = new QTimer(qApp);
        QObject::connect(looking, &QTimer::timeout, looking, [looking, act] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr || !box->isVisible()) return;
            looking->stop();
            looking->deleteLater();
            act(*box);
        });
        looking->start(5);
    }
    static void press(QWidget& window, const Control& button) {
        QTest::mouseClick(widget(&window, button), Qt::LeftButton);
    }
};

TEST_F(TaxInvoiceWindow, WaitsByItsTimerAndAsksSoThatAHastyEnterConfirmsNothing) {
    QString proposed;
    show([&](Frm税控发票打印& screen, QWidget& window) {
        atBox([&](QMessageBox& box) {
            EXPECT_EQ(box.text(), "税控发票是否正确打印了？");
            proposed = box.defaultButton()->text();
            QTest::keyClick(&box, Qt::Key_Return);
        });
        press(window, screen.打印发票);
        EXPECT_TRUE(screen.恢复.面板.isOpen());
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_EQ(Person::focused(), "选项0");
    });
    EXPECT_EQ(proposed, "否(&N)");
    EXPECT_EQ(parts.machine.take(),
              Journal({"has window 税控软件", "activate 税控软件", "activate 税控发票打印"}));
    EXPECT_EQ(app->screens.loaded(Frm税控发票打印::screenName), nullptr);
}

TEST_F(TaxInvoiceWindow, ClosedInTheMidstOfAWaitItTypesNothingMore) {
    app->主连接.execute(
        "Insert Into SKStep (SK_ID,Operate_step,Stage,Operate_type,X) Values (1,1,'开票','延时','2')");
    app->主连接.execute(
        "Insert Into SKStep (SK_ID,Operate_step,Stage,Operate_type,KeyString) Values "
        "(1,2,'开票','键盘操作','{F9}')");
    show([&](Frm税控发票打印& screen, QWidget& window) {
        int ticks = 0;
        dynamic_cast<Timer&>(*screen.control("计时")).tick += [&] {
            if (++ticks == 4) window.close();
        };
        press(window, screen.打印发票);
        EXPECT_EQ(ticks, 4);
    });
    EXPECT_EQ(parts.machine.take(), Journal({"has window 税控软件", "activate 税控软件"}));
    EXPECT_EQ(app->screens.loaded(Frm税控发票打印::screenName), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !app->screens.hasUnloaded(); }));
}

TEST_F(TaxInvoiceWindow, ComesForwardWhereTheNumberIsMissing) {
    app->主连接.execute(
        "Insert Into SKStep (SK_ID,Operate_step,Stage,Operate_type) Values (1,1,'开票','获取发票编号')");
    show([&](Frm税控发票打印& screen, QWidget& window) {
        atBox([&](QMessageBox& box) {
            EXPECT_EQ(box.text(), "未能获取税控机上的发票号码，请重新按[打印发票]按钮");
            EXPECT_EQ(box.parentWidget(), &window);
            QTest::keyClick(&box, Qt::Key_Return);
        });
        app->screens.loaded(MDIForm1::screenName)->activate();
        window.showMinimized();
        press(window, screen.打印发票);
        EXPECT_FALSE(window.isMinimized());
        EXPECT_TRUE(widget(&window, screen.打印发票)->isEnabled());
    });
}

}  // namespace
}  // namespace desk::desktop
