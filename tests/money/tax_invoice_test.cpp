#include "money/tax_desk.h"

namespace desk {
namespace {

/// What only the surrounding property system has.
struct 外部程序 : Screen {
    外部程序() : Screen("frm外部", "", WindowKind::child, 100, 100) {}
    Button Command16{*this, "Command16", ""};
    Frame Frame3{*this, "Frame3"};
    Button Command5{*this, "Command5", ""};
    Button Command4{*this, "Command4", ""};
    退票窗体 退票{"frm退票", "", WindowKind::dialog, 100, 100};

    void bindTo(Frm税控发票打印& screen) { screen.外部 = {&Command16, &Frame3, &Command5, &Command4, &退票}; }
};

class TaxInvoice : public testing::Test {
  protected:
    TaxInvoice() { desk.isRunning(); }

    /// The screen after an invoice that did not come out.
    Frm税控发票打印& failedPrint(const std::string& caller = "意向金收取") {
        auto& screen = desk.open();
        screen.tag = caller;
        desk.print(screen, Answer::no);
        return screen;
    }
    long failureOf(const std::function<void()>& act) {
        try {
            act();
        } catch (const RuntimeFailure& failure) {
            return failure.number();
        }
        return 0;
    }

    税控台 desk;
    外部程序 outside;
};

TEST_F(TaxInvoice, AnswerYesHandsTheTicketToWhoeverCalled) {
    for (const auto& [caller, taken] :
         std::initializer_list<std::pair<const char*, Control*>>{{"前台收款", &outside.Command16},
                                                                 {"内换票处理", &outside.Command5},
                                                                 {"调换票处理", &outside.Command4}}) {
        auto& screen = desk.open();
        outside.bindTo(screen);
        screen.tag = caller;
        desk.print(screen, Answer::yes);
        EXPECT_FALSE(desk.isOpen()) << caller;
        EXPECT_EQ(taken->tag, "B1,9001,1") << caller;
        taken->tag.clear();
        EXPECT_EQ(outside.Command16.tag + outside.Command5.tag + outside.Command4.tag, "") << caller;
        // Where it is not bound the trap of the run leaves the screen as it is.
        auto& unbound = desk.open();
        unbound.tag = caller;
        desk.print(unbound, Answer::yes);
        EXPECT_TRUE(desk.isOpen()) << caller;
        EXPECT_FALSE(unbound.关闭.enabled()) << caller;
        desk.app.screens.unload(unbound);
    }
    auto& screen = desk.open();
    screen.tag = "别处";
    desk.print(screen, Answer::yes);
    EXPECT_FALSE(desk.isOpen());
    EXPECT_EQ(desk.handedBack(), "");
}

TEST_F(TaxInvoice, CannotBePressedAgainWhileItReprints) {
    auto& screen = failedPrint();
    screen.恢复.选项[3].click();
    desk.desktop.answers = {Answer::no};
    bool pressable = true;
    desk.meanwhile = [&](const std::string&) { pressable = screen.恢复.确定.usable(); };
    screen.恢复.确定.click();
    EXPECT_FALSE(pressable);
    EXPECT_TRUE(screen.恢复.确定.enabled());
}

TEST_F(TaxInvoice, TakesATicketBackAndPrintsTwice) {
    auto& screen = failedPrint();
    outside.bindTo(screen);
    screen.恢复.选项[1].click();
    std::string seen;
    desk.desktop.modalPerson = [&](Screen& dialog) {
        EXPECT_EQ(&dialog, &outside.退票);
        seen = dialog.tag + "|" + outside.退票.Text3.text() + "|" + outside.退票.Text2.tag + "|" +
               outside.退票.Text1.text() + "|" + outside.退票.Text4.text() + "|" + outside.退票.Text3.tag;
    };
    desk.desktop.answers = {Answer::no, Answer::no};
    screen.恢复.确定.click();
    EXPECT_EQ(seen, "票据打印|打印机送纸故障或打印字迹不清楚|100000.00|9001|B1 税控发票|1");
    EXPECT_EQ(screen.样张.空白票据.find("9001"), -1);
    EXPECT_EQ(screen.样张.空白票据.count(), 1);
    const auto journal = desk.machine.take();
    EXPECT_EQ(journal.front(), "waits");
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "has window 税控软件"), 2);
    EXPECT_EQ(screen.恢复.面板.tag, "非正常");
    EXPECT_FALSE(screen.恢复.面板.isOpen());

    // Without a new print the way out is open, and the reason stays where none is chosen.
    desk.app.screens.unload(screen);
    auto& second = failedPrint();
    outside.bindTo(second);
    second.样张.空白票据.pick("9002");
    second.恢复.退票.click();
    second.恢复.确定.click();
    EXPECT_EQ(second.样张.空白票据.find("9002"), -1);
    EXPECT_EQ(outside.退票.Text3.text(), "");
    EXPECT_TRUE(second.关闭.enabled());
    EXPECT_EQ(second.恢复.面板.tag, "");
}

TEST_F(TaxInvoice, CancelsTheChargeOfACallerOutside) {
    const auto cancel = [&](Frm税控发票打印& screen) {
        screen.恢复.取消收款.click();
        return failureOf([&] { screen.恢复.确定.click(); });
    };
    auto& own = failedPrint();
    EXPECT_EQ(cancel(own), 0);
    EXPECT_TRUE(desk.isOpen() && own.恢复.面板.isOpen());
    EXPECT_FALSE(own.关闭.enabled());
    desk.app.screens.unload(own);

    for (const char* caller : {"内换票处理", "调换票处理"}) {
        EXPECT_EQ(cancel(failedPrint(caller)), 0);
        EXPECT_FALSE(desk.isOpen()) << caller;
    }

    auto& front = failedPrint("前台收款");
    EXPECT_EQ(cancel(front), 424);
    outside.bindTo(front);
    front.恢复.确定.click();
    EXPECT_TRUE(desk.isOpen());
    outside.Frame3.tag = "3,4";
    desk.fault.statements.clear();
    EXPECT_NE(failureOf([&] { front.恢复.确定.click(); }), 0);
    EXPECT_EQ(desk.fault.statements.back(),
              "Update WYZJ  Set ZJ_SKRQ=Null,收款方式 =Null,收款人 = Null Where ZJ_ID In(3,4),");
    EXPECT_TRUE(desk.isOpen() && outside.Command16.enabled());
}

TEST_F(TaxInvoice, CloseHandsBackOnlyForSomeCallersAndOnlyWhatWasConfirmed) {
    for (const char* caller : {"前台收款", "内换票处理", "调换票处理", "意向金收取", ""}) {
        auto& screen = desk.open();
        outside.bindTo(screen);
        screen.tag = caller;
        screen.关闭.click();
        EXPECT_FALSE(desk.isOpen()) << caller;
    }
    EXPECT_EQ(outside.Command16.tag + outside.Command5.tag + outside.Command4.tag + desk.handedBack(), "");

    // Confirmed, but for the trap nothing was handed back: a refund that went well opens the way out.
    for (const char* caller : {"前台收款", "内换票处理", "调换票处理", "意向金收取"}) {
        auto& screen = desk.open();
        outside.bindTo(screen);
        screen.tag = caller;
        desk.desktop.answers = {Answer::yes};
        screen.税控退票处理();
        screen.关闭.click();
        EXPECT_FALSE(desk.isOpen()) << caller;
    }
    EXPECT_EQ(outside.Command16.tag, "B1,9001,1");
    EXPECT_EQ(outside.Command5.tag, "B1,9001,1");
    EXPECT_EQ(outside.Command4.tag + desk.handedBack(), "");

    auto& closedOut = desk.open();
    outside.bindTo(closedOut);
    outside.Command16.tag.clear();
    closedOut.tag = "前台收款";
    desk.desktop.answers = {Answer::yes};
    closedOut.税控退票处理();
    closedOut.恢复.面板.tag = "非正常";
    closedOut.关闭.click();
    EXPECT_FALSE(desk.isOpen());
    EXPECT_EQ(outside.Command16.tag, "");

    auto& unbound = desk.open();
    unbound.tag = "内换票处理";
    desk.desktop.answers = {Answer::yes};
    unbound.税控退票处理();
    EXPECT_EQ(failureOf([&] { unbound.关闭.click(); }), 424);
}

TEST_F(TaxInvoice, DoesNotOpenWithoutWhatItsConfigurationNeeds) {
    const auto openingAfter = [&](std::string_view statement) {
        税控台 fresh;
        fresh.types("{F2}");
        fresh.db().execute(statement);
        const long failed = failureOf([&] { fresh.open(); });
        EXPECT_EQ(fresh.isOpen(), failed == 0);
        return failed;
    };
    for (const char* statement :
         {"Update SKStep Set Operate_type=Null", "Update SKOperator Set UserNum=Null",
          "Update SKSfxm Set XM_Num=Null", "Update SKSfxm Set XM_Name=Null", "Update SKSfxm Set XM_Xu=Null"})
        EXPECT_EQ(openingAfter(statement), 94) << statement;
    EXPECT_EQ(openingAfter("Update SKSfxm Set XM_Xu=32768"), 6);
    for (const char* statement :
         {"Update SKStep Set Stage=Null,X=Null,Y=Null,KeyString=Null,Remark=Null",
          "Update SKOperator Set Password=Null", "Update SKSfxm Set 项目编号=Null,项目名称=Null",
          "Update 票据税控机 Set 软件名称=Null,启动后名称=Null"})
        EXPECT_EQ(openingAfter(statement), 0) << statement;
}

}  // namespace
}  // namespace desk
