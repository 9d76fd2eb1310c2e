#include <fmt/format.h>

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
    /// A confirmed print whose screen stays: the hand-back has failed.
    Frm税控发票打印& printedWithoutTicket() {
        auto& screen = desk.open();
        screen.样张.空白票据.setIndex(-1);
        desk.print(screen, Answer::yes);
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

TEST_F(TaxInvoice, OpensWithTheDayAndTheIssuerAndWithoutARemark) {
    auto& screen = desk.open();
    auto& form = screen.样张;
    EXPECT_EQ(form.开票日期.text(), "2011/3/5");
    EXPECT_EQ(form.开票人.text(), "林晓");
    EXPECT_EQ(form.备注.text(), "");
    EXPECT_EQ(form.合计大写.caption() + "|" + form.合计小写.caption(), "壹园整|100000.00");
    EXPECT_EQ(screen.打印发票.tag, "c:\\税控\\开票.exe");
    EXPECT_EQ(form.发票.tag, "1");
    EXPECT_EQ(form.标题.tag, "税控软件");
    EXPECT_EQ(screen.caption(), "税控发票打印");
    EXPECT_EQ(dynamic_cast<Timer&>(*screen.control("计时")).interval(), 250);
}

TEST_F(TaxInvoice, AnswerYesHandsTheTicketBack) {
    auto& screen = desk.open();
    screen.样张.空白票据.pick("9002");
    desk.print(screen, Answer::yes);
    EXPECT_FALSE(desk.isOpen());
    EXPECT_EQ(desk.handedBack(), "B1,9002,2");
    EXPECT_FALSE(desk.app.screens.loaded(Frm意向金收取::screenName) == nullptr);
    const auto& question = desk.desktop.messages.back();
    EXPECT_EQ(question.text, "税控发票是否正确打印了？");
    EXPECT_EQ(question.buttons, Buttons::yesNo);
    EXPECT_EQ(question.preferred, Answer::no);
}

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

TEST_F(TaxInvoice, AnswerNoShowsTheRecoveryAndLeavesNoOtherWay) {
    auto& screen = failedPrint();
    EXPECT_TRUE(screen.恢复.面板.isOpen());
    EXPECT_FALSE(screen.打印发票.enabled() || screen.关闭.enabled());
    screen.恢复.面板.escape();
    EXPECT_TRUE(screen.恢复.面板.isOpen());
    EXPECT_EQ(desk.handedBack(), "");
}

TEST_F(TaxInvoice, WithoutATicketKeepsTheScreenAfterAYes) {
    auto& screen = printedWithoutTicket();
    EXPECT_TRUE(desk.isOpen());
    EXPECT_FALSE(screen.打印发票.enabled() || screen.关闭.enabled());
    EXPECT_EQ(desk.handedBack(), "");
}

TEST_F(TaxInvoice, EachReasonProposesWhatCanBeDone) {
    auto& panel = failedPrint().恢复;
    const auto boxes = [&] {
        std::string all;
        for (const CheckBox* box : {&panel.重新打印, &panel.退票, &panel.取消收款})
            all += std::string(box->enabled() ? "+" : "-") + (box->checked() ? "x" : "o");
        return all;
    };
    EXPECT_EQ(boxes(), "+o+o+o");
    const char* proposed[] = {"+x+x-o", "+x+x-o", "-o+x+x", "+x-o-o"};
    for (const std::size_t reason : {2, 0, 3, 1}) {
        panel.选项[reason].click();
        EXPECT_EQ(boxes(), proposed[reason]) << reason;
    }
}

TEST_F(TaxInvoice, WithNothingTickedTheRecoveryLeavesOnlyTheWayOut) {
    auto& screen = failedPrint();
    screen.恢复.确定.click();
    EXPECT_EQ(screen.恢复.面板.tag, "非正常");
    EXPECT_FALSE(screen.恢复.面板.isOpen());
    EXPECT_TRUE(screen.关闭.enabled());
    EXPECT_FALSE(screen.打印发票.enabled());
    screen.关闭.click();
    EXPECT_FALSE(desk.isOpen());
    EXPECT_EQ(desk.handedBack(), "");
}

TEST_F(TaxInvoice, ReprintsAndThenHidesThePanelWhateverCameOfIt) {
    auto& screen = failedPrint();
    screen.恢复.选项[3].click();
    desk.desktop.answers = {Answer::no};
    bool pressable = true;
    desk.meanwhile = [&](const std::string&) { pressable = screen.恢复.确定.usable(); };
    screen.恢复.确定.click();
    EXPECT_FALSE(pressable);
    EXPECT_TRUE(screen.恢复.确定.enabled());
    EXPECT_EQ(desk.machine.take().front(), "has window 税控软件");
    EXPECT_FALSE(screen.恢复.面板.isOpen());
    EXPECT_EQ(screen.恢复.面板.tag, "");
    EXPECT_FALSE(screen.打印发票.enabled() || screen.关闭.enabled());

    desk.app.screens.unload(screen);
    auto& again = failedPrint();
    again.恢复.选项[3].click();
    desk.desktop.answers = {Answer::yes};
    again.恢复.确定.click();
    EXPECT_FALSE(desk.isOpen());
    EXPECT_EQ(desk.handedBack(), "B1,9001,1");
}

TEST_F(TaxInvoice, TakingBackNeedsADialogThatIsNotThere) {
    for (const std::size_t reason : {0, 1, 2}) {
        auto& screen = failedPrint();
        screen.恢复.选项[reason].click();
        desk.machine.take();
        EXPECT_EQ(failureOf([&] { screen.恢复.确定.click(); }), 424);
        EXPECT_FALSE(screen.恢复.面板.isOpen());
        EXPECT_EQ(desk.machine.take(), Journal({"waits"}));
        desk.app.screens.unload(screen);
    }
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

TEST_F(TaxInvoice, ADoubleStartEndsWithTheFirstThatCameOut) {
    auto& screen = failedPrint();
    outside.bindTo(screen);
    screen.恢复.选项[0].click();
    desk.desktop.modalPerson = [](Screen&) {};
    desk.types("{F2}");
    desk.desktop.answers = {Answer::yes};
    screen.样张.空白票据.setIndex(0);
    // The ticket that was taken back is no longer chosen: the second one is, by the person.
    desk.meanwhile = [&](const std::string& what) {
        if (what == "has window 税控软件") screen.样张.空白票据.pick("9002");
    };
    screen.恢复.确定.click();
    EXPECT_FALSE(desk.isOpen());
    EXPECT_EQ(desk.handedBack(), "B1,9002,2");
    const auto journal = desk.machine.take();
    EXPECT_EQ(std::count(journal.begin(), journal.end(), "has window 税控软件"), 1);
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

TEST_F(TaxInvoice, WithoutADeviceCloseGivesNothingBack) {
    desk.run({"Delete From 票据税控机"});
    auto& screen = desk.open();
    screen.关闭.click();
    EXPECT_FALSE(desk.isOpen());
    EXPECT_EQ(desk.handedBack(), "");
}

TEST_F(TaxInvoice, WithoutAnOperatorOpensAndCannotPrint) {
    desk.run({"Delete From SKOperator"});
    desk.types("{F2}");
    auto& screen = desk.open();
    EXPECT_EQ(desk.desktop.takeMessage(), "您未被设置为税控机操作人员");
    EXPECT_FALSE(screen.打印发票.enabled());
    screen.打印发票.click();
    EXPECT_EQ(desk.machine.take(), Journal());
    // The rest has been read all the same, and the refund may run.
    desk.step("退票", "键盘操作", "", "", "", "输入用户名", "SKTPStep");
    screen.关闭.click();
    EXPECT_FALSE(desk.isOpen());
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

TEST_F(TaxInvoice, TheBooksOfOthersStandBehindItsOwn) {
    desk.run({"Insert Into 票据入库单 (入库单编号,票据类型编号,税控) Values ('B0','1',1)",
              "Insert Into 票据入库单 (入库单编号,票据类型编号,税控) Values ('A1','1',1)",
              "Insert Into 票据入库单 (入库单编号,票据类型编号,税控) Values ('A2','1',0)",
              "Insert Into 票据入库单 (入库单编号,票据类型编号) Values ('A3','1')",
              "Insert Into 票据类型 (票据类型代号,票据类型,税控,定额) Values ('3','定额票',1,1)",
              "Insert Into 票据入库单 (入库单编号,票据类型编号,税控) Values ('A4','3',1)",
              "Insert Into 票据领用记录 (票据领用记录编号,领用部门代号) Values ('L2','02')",
              "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','B0')",
              "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L2','A1')",
              "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','A2')",
              "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','A3')",
              "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','A4')",
              "Insert Into 票据领用清单 (领用记录编号,入库单编号,核销日期) Values ('L1','A5','2011-1-1')",
              "Insert Into 票据领用清单 (领用记录编号,入库单编号,归还日期) Values ('L1','A1','2011-1-1')",
              "Insert Into 票据共用设置 (领用部门编号,共用部门编号) Values (' 02 ','01')"});
    auto& screen = desk.open();
    std::string books;
    for (const Item& book : screen.样张.票据本.items()) books += book.text + "|";
    EXPECT_EQ(books, "B0 税控发票|B1 税控发票|A1 税控发票|");
}

TEST_F(TaxInvoice, ABookShowsItsBlankTicketsAndChoosesTheFirst) {
    desk.run({"Insert Into 票据 (入库单编号,票据编号) Values ('B1','8999')",
              "Insert Into 票据 (入库单编号,票据编号,开票日期) Values ('B1','8000','2011-1-1')",
              "Insert Into 票据 (入库单编号,票据编号,作废日期) Values ('B1','8001','2011-1-1')",
              "Insert Into 票据入库单 (入库单编号,票据类型编号,税控) Values ('B2','1',1)",
              "Insert Into 票据领用清单 (领用记录编号,入库单编号) Values ('L1','B2')"});
    auto& screen = desk.open();
    auto& form = screen.样张;
    std::string tickets;
    for (const Item& ticket : form.空白票据.items())
        tickets += fmt::format("{}:{}|", ticket.text, ticket.data);
    EXPECT_EQ(tickets, "8999:3|9001:1|9002:2|");
    EXPECT_EQ(form.空白票据.index(), 0);
    EXPECT_EQ(form.发票号码.caption(), "8999");
    EXPECT_EQ(desk.desktop.busyDepth, 0);
    form.票据本.pick("B2 税控发票");
    EXPECT_EQ(form.空白票据.count(), 0);
    EXPECT_EQ(form.发票号码.caption(), "");
}

}  // namespace
}  // namespace desk
