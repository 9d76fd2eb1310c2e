#include "money/tax_invoice.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "db/statement.h"
#include "desktop/in_windows.h"
#include "desktop/person.h"
#include "money/tax_desk.h"

namespace desk::desktop {
namespace {

/// The screen in its own modal window, on the real desktop of the program, with a tax program that runs.
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
    void addStep(int number, const char* type, const char* x, const char* keys) {
        app->主连接.execute(
            sql("Insert Into SKStep (SK_ID,Operate_step,Stage,Operate_type,X,KeyString) Values "
                "(1,{},'开票','{}','{}','{}')",
                number, type, x, keys));
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
    addStep(1, "延时", "2", "");
    addStep(2, "键盘操作", "", "{F9}");
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
    addStep(1, "获取发票编号", "", "");
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
