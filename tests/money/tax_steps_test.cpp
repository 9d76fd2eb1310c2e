#include "money/tax_desk.h"

namespace desk {
namespace {

class TaxSteps : public testing::Test {
  protected:
    TaxSteps() { desk.isRunning(); }

    /// What one step does in a run.
    Journal done() {
        auto& screen = desk.open();
        const Journal journal = desk.doneBySteps(screen);
        desk.app.screens.unload(screen);
        desk.run({"Delete From SKStep"});
        return journal;
    }
    Journal done(const std::string& type, const std::string& x, const std::string& y) {
        desk.step("开票", type, x, y);
        return done();
    }
    Journal typed(const std::string& remark, const std::string& x = "") {
        desk.typesText(remark, x);
        return done();
    }
    /// Whether the step ends the run without a word.
    void endsTheRun(const std::string& type, const std::string& x, const std::string& y, Journal before) {
        desk.step("开票", type, x, y);
        desk.types("{F9}");
        auto& screen = desk.open();
        desk.desktop.messages.clear();
        screen.打印发票.click();
        auto journal = desk.machine.take();
        journal.erase(journal.begin(), journal.begin() + 5);
        EXPECT_EQ(journal, before);
        EXPECT_TRUE(desk.desktop.messages.empty());
        EXPECT_FALSE(screen.打印发票.enabled());
        EXPECT_FALSE(screen.关闭.enabled());
        desk.app.screens.unload(screen);
        desk.run({"Delete From SKStep"});
    }

    税控台 desk;
};

TEST_F(TaxSteps, OfTheMouse) {
    EXPECT_EQ(done("鼠标单击", "25", "310"), Journal({"pointer 25 310", "mouse 0 0 0", "waits"}));
    EXPECT_EQ(done("鼠标双击", "-4.5", " 1e2 "),
              Journal({"pointer -4 100", "mouse 0 0 0", "mouse 0 0 0", "waits"}));
    EXPECT_EQ(done("鼠标移动", "15", "x"), Journal({"mouse 0 15 0"}));
    EXPECT_EQ(done("鼠标选中", "90", "x"), Journal({"mouse 0 0 0", "mouse 0 90 0", "mouse 0 0 0"}));
}

TEST_F(TaxSteps, EndTheRunWhereATextIsNoNumberOrTooLarge) {
    endsTheRun("鼠标单击", "x", "1", {});
    endsTheRun("鼠标单击", "1", "", {});
    endsTheRun("鼠标双击", "1", "3000000000", {});
    endsTheRun("鼠标移动", "", "1", {});
    endsTheRun("鼠标选中", "九十", "1", {"mouse 0 0 0"});
    endsTheRun("延时", "32768", "", {});
}

TEST_F(TaxSteps, WaitAsTheHeadOfXSays) {
    EXPECT_EQ(done("延时", "2", "9"), Journal({"waits", "waits"}));
    EXPECT_EQ(done("延时", "2.5次", ""), Journal({"waits", "waits"}));
    EXPECT_EQ(done("延时", "3.5", ""), Journal({"waits", "waits", "waits", "waits"}));
    for (const char* none : {"", "次3", "0", "-5"}) EXPECT_EQ(done("延时", none, ""), Journal()) << none;
    desk.step("开票", "延时", "", "", "7");
    EXPECT_EQ(done(), Journal());
}

TEST_F(TaxSteps, TypeTheirKeysAndNothingElse) {
    desk.step("开票", "键盘操作", "8", "9", "{F2}", "输入付款人");
    desk.types(" ");
    EXPECT_EQ(done(), Journal({"send {F2}", "send  "}));
}

TEST_F(TaxSteps, TypeWhatStandsInTheForm) {
    EXPECT_EQ(typed("输入用户名"), Journal({"send 01"}));
    EXPECT_EQ(typed("输入密码"), Journal({"send 123456"}));
    EXPECT_EQ(typed("输入付款人"), Journal({"send 甲公司"}));
    EXPECT_EQ(typed("输入单价1"), Journal({"send 1.5"}));
    EXPECT_EQ(typed("输入单价2"), Journal({"send 4"}));
    EXPECT_EQ(typed("输入数量1"), Journal({"send 2"}));
    EXPECT_EQ(typed("输入数量2"), Journal({"send 5"}));
    EXPECT_EQ(typed("输入金额1"), Journal({"send 3"}));
    EXPECT_EQ(typed("输入金额2"), Journal({"send 20"}));
    for (const char* empty : {"输入单价3", "输入数量3", "输入金额3", "输入备注"})
        EXPECT_EQ(typed(empty), Journal({"send "})) << empty;
    for (const char* nothing : {"", "无", "输入", "输入单价", "输入单价4", "输入合计1", "1", "输入备注1"})
        EXPECT_EQ(typed(nothing), Journal()) << nothing;
}

TEST_F(TaxSteps, TypeWhatThePersonHasMadeOfTheForm) {
    for (const char* remark : {"输入付款人", "输入备注", "输入单价3", "输入数量3", "输入金额3"})
        desk.typesText(remark);
    auto& screen = desk.open();
    auto& form = screen.样张;
    form.付款单位.type("A+B(甲){乙}");
    form.备注.type("~1%");
    form.项目[2].单价.type("单");
    form.项目[2].数量.type("数");
    form.项目[2].金额.type("金");
    EXPECT_EQ(desk.doneBySteps(screen),
              Journal({"send A+B(甲){乙}", "send ~1%", "send 单", "send 数", "send 金"}));
}

TEST_F(TaxSteps, FindTheItemOfTheTaxProgramByItsCode) {
    EXPECT_EQ(typed("按经营项目编号1"), Journal({"send 0101", "send {ENTER}"}));
    EXPECT_EQ(typed("按经营项目编号2"), Journal({"send 0102", "send {ENTER}"}));
    EXPECT_EQ(typed("按经营项目位置1", "18"), Journal({"mouse 0 0 0", "mouse 0 0 0"}));
    EXPECT_EQ(typed("按经营项目位置2", "18.25像素"), Journal({"mouse 0 0 36", "mouse 0 0 0"}));
    EXPECT_EQ(typed("按经营项目位置2", "18.75"), Journal({"mouse 0 0 38", "mouse 0 0 0"}));
    for (const char* remark : {"按经营项目编号3", "按经营项目位置3"})
        EXPECT_EQ(typed(remark, "18"), Journal()) << remark;
    // The first that fits, and case counts.
    desk.run({"Insert Into SKSfxm (税控ID,项目编号,XM_Num,XM_Name,XM_Xu) Values (1,'D1','0999','晚',7)",
              "Update SKSfxm Set 项目编号='d2' Where 项目编号='D2'"});
    EXPECT_EQ(typed("按经营项目编号1"), Journal({"send 0101", "send {ENTER}"}));
    EXPECT_EQ(typed("按经营项目编号2"), Journal());
}

TEST_F(TaxSteps, FindTheBlankItemForAnEmptyLineWhereTheDeviceHasNone) {
    desk.run({"Delete From SKSfxm"});
    EXPECT_EQ(typed("按经营项目编号1"), Journal());
    EXPECT_EQ(typed("按经营项目编号3"), Journal({"send ", "send {ENTER}"}));
    EXPECT_EQ(typed("按经营项目位置3", "18"), Journal({"mouse 0 0 -18", "mouse 0 0 0"}));
}

TEST_F(TaxSteps, EndTheRunWhereAPositionIsOutOfRange) {
    desk.run({"Update SKSfxm Set XM_Xu=-32768 Where 项目编号='D1'"});
    desk.typesText("按经营项目位置1", "1");
    endsTheRun("鼠标移动", "1", "", {});
    desk.run({"Update SKSfxm Set XM_Xu=32767 Where 项目编号='D1'"});
    desk.typesText("按经营项目位置1", "100000");
    endsTheRun("鼠标移动", "1", "", {});
}

TEST_F(TaxSteps, ReadTheNumberAndChooseItsTicket) {
    desk.number = "9002";
    desk.step("开票", "获取发票编号");
    desk.types("{TAB}");
    auto& screen = desk.open();
    EXPECT_EQ(screen.样张.空白票据.text(), "9001");
    EXPECT_EQ(desk.doneBySteps(screen), Journal({"clipboard clear", "send ^C", "waits", "waits", "waits",
                                                 "clipboard text", "send {TAB}"}));
    EXPECT_EQ(screen.样张.空白票据.text(), "9002");
    EXPECT_EQ(screen.样张.空白票据.tag, "9002");
    EXPECT_EQ(screen.样张.发票号码.caption(), "9002");
    EXPECT_FALSE(screen.出现错误.visible());
}

}  // namespace
}  // namespace desk
