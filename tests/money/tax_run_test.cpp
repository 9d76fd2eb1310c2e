#include "base/failure.h"
#include "money/tax_desk.h"

namespace desk {
namespace {

const std::string unreadable = "未能获取税控机上的发票号码，请重新按[打印发票]按钮";
const std::string unknown =
    "税控机上的发票号码与数据库内发票号码不匹配！\r\n可能选择票据簿有无，请重新选择票据簿";

/// How the buttons of the screen stand: 打印发票, 关 闭.
std::string buttonsOf(const Frm税控发票打印& screen) {
    return std::string(screen.打印发票.enabled() ? "打印" : "-") + " " +
           (screen.关闭.enabled() ? "关闭" : "-");
}

class TaxRun : public testing::Test {
  protected:
    /// The texts of all boxes since the last time.
    Journal told() {
        Journal texts;
        for (const auto& message : desk.desktop.messages) texts.push_back(message.text);
        desk.desktop.messages.clear();
        return texts;
    }
    void logsIn() {
        desk.types("{TAB}", 税控台::login);
        desk.step(税控台::login, "鼠标双击", "1", "2");
        desk.types("{F2}");
        desk.step("开票", "鼠标双击", "3", "4");
    }

    税控台 desk;
};

TEST_F(TaxRun, FindsThePlaceOfTheProgramByEitherSeparator) {
    const auto parted = [](std::string_view path) {
        const auto place = 软件位置::分解(path);
        return place.目录 + "|" + place.文件名;
    };
    EXPECT_EQ(parted("c:\\税控\\开票.exe"), "c:\\税控\\|开票.exe");
    EXPECT_EQ(parted("/opt/税控/开票"), "/opt/税控/|开票");
    EXPECT_EQ(parted("c:\\a/b"), "c:\\a/|b");
    EXPECT_EQ(parted("/a\\"), "/a\\|");
    EXPECT_EQ(parted("开票.exe"), "|");
    EXPECT_EQ(parted(""), "|");
}

TEST_F(TaxRun, EndsSilentlyWhereTheProgramCannotBeStartedOrTheScreenNotFound) {
    logsIn();
    auto& screen = desk.open();
    desk.programs.canStart = false;
    screen.打印发票.click();
    EXPECT_EQ(desk.machine.take(), Journal({"has window 税控软件", "start minimised c:\\税控\\开票.exe"}));
    EXPECT_EQ(buttonsOf(screen), "- -");

    desk.app.screens.unload(screen);
    desk.programs.windows = {"税控软件"};
    auto& second = desk.open();
    second.打印发票.click();
    EXPECT_EQ(desk.machine.take().back(), "activate 税控发票打印");
    EXPECT_EQ(told(), Journal());
    EXPECT_EQ(buttonsOf(second), "- -");
    EXPECT_FALSE(second.恢复.面板.isOpen());
}

TEST_F(TaxRun, SaysWhereTheDesktopLetsNobodyTypeAndStops) {
    auto& screen = desk.open();
    desk.keyboard.refused = "不许代替键盘";
    desk.machine.take();
    screen.打印发票.click();
    EXPECT_EQ(told(), Journal({"不许代替键盘"}));
    EXPECT_EQ(desk.machine.take(), Journal());
    EXPECT_EQ(buttonsOf(screen), "打印 关闭");
}

/// The number that the refund's own script reads, in the login or behind it.
struct NumberCase {
    bool login;
    const char* number;
    const char* buttons;
};

TEST(TaxRefund, EndsAtANumberThatCannotBeUsed) {
    for (const auto& with : {NumberCase{true, "", "打印 关闭"}, NumberCase{true, "09001", "打印 关闭"},
                             NumberCase{false, "", "打印 -"}, NumberCase{false, "x", "打印 关闭"}}) {
        SCOPED_TRACE(with.number);
        税控台 desk;
        const auto stage = with.login ? 税控台::login : "开票";
        desk.step(stage, "获取发票编号", "", "", "", "", "SKTPStep");
        desk.step(stage, "键盘操作", "", "", "{TAB}", "", "SKTPStep");
        desk.number = with.number;
        if (!with.login) desk.isRunning();
        auto& screen = desk.open();
        // The tax program is in front, and would hide the box.
        desk.desktop.inFront = "";
        std::string atTheBox;
        desk.meanwhile = [&](const std::string& what) {
            if (what == "box") atTheBox = desk.desktop.inFront;
        };
        screen.税控退票处理();
        Journal expected =
            with.login
                ? Journal({"mouse 0 0 0", "mouse 0 90 0", "mouse 0 0 0", "waits", "waits", "clipboard clear",
                           "send ^({C})", "waits", "waits", "waits", "clipboard text"})
                : Journal({"clipboard clear", "send ^C", "waits", "waits", "waits", "clipboard text"});
        auto journal = desk.machine.take();
        journal.erase(journal.begin(), journal.begin() + (with.login ? 11 : 5));
        EXPECT_EQ(journal, expected);
        const bool missing = *with.number == '\0';
        EXPECT_EQ(desk.desktop.takeMessage(), missing ? unreadable : unknown);
        EXPECT_EQ(atTheBox, screen.name());
        EXPECT_EQ(buttonsOf(screen), with.buttons);
        EXPECT_TRUE(screen.出现错误.visible());
        EXPECT_EQ(screen.样张.空白票据.tag, with.number);
        EXPECT_EQ(screen.样张.空白票据.hasSelection(), missing);
        EXPECT_FALSE(screen.恢复.面板.isOpen());
    }
}

TEST_F(TaxRun, OfTheRefundLogsInByItsOwnScript) {
    desk.types("{TAB}", 税控台::login);
    desk.step(税控台::login, "鼠标单击", "1", "2", "", "", "SKTPStep");
    desk.step(税控台::login, "键盘操作", "", "", "{ESC}", "", "SKTPStep");
    desk.step("退票", "键盘操作", "", "", "{F5}", "", "SKTPStep");
    auto& screen = desk.open();
    desk.desktop.answers = {Answer::no};
    screen.税控退票处理();
    const auto journal = desk.machine.take();
    EXPECT_EQ(Journal(journal.begin() + 11, journal.begin() + 16),
              Journal({"pointer 1 2", "mouse 0 0 0", "waits", "send {ESC}", "send {F5}"}));
}

TEST_F(TaxRun, GivesTheIndexBehindTheLogin) {
    logsIn();
    auto& screen = desk.open();
    std::int16_t start = 7;
    EXPECT_TRUE(screen.税控.未登录(start));
    EXPECT_EQ(start, 2);
    EXPECT_TRUE(screen.税控.退票未登录(start));
    EXPECT_EQ(start, 0);
    desk.machine.take();
    screen.税控.延时(0);
    screen.税控.延时(-3);
    EXPECT_EQ(desk.machine.take(), Journal());
    screen.税控.延时(3);
    EXPECT_EQ(desk.machine.take(), Journal({"waits", "waits", "waits"}));
    screen.税控.已登录();
    EXPECT_EQ(desk.machine.take(),
              Journal({"pointer 25 25", "mouse 0 0 0", "pointer 25 85", "mouse 0 0 0", "waits", "pointer 0 0",
                       "pointer 462 70", "waits", "mouse 0 0 0", "mouse 0 35 0", "mouse 0 0 0", "waits",
                       "clipboard clear", "send ^({C})", "waits"}));
}

TEST_F(TaxRun, AWaitInsideAWaitLeavesTheTimerToTheOuterOne) {
    auto& screen = desk.open();
    int waits = 0;
    desk.meanwhile = [&](const std::string&) {
        if (++waits > 50) throw ProcessEnded();
        if (waits == 1) screen.税控.延时(1);
    };
    screen.税控.延时(3);
    EXPECT_FALSE(screen.control("计时")->enabled());
}

TEST_F(TaxRun, CannotBePressedAgainWhileItReprints) {
    desk.isRunning();
    auto& screen = desk.open();
    desk.print(screen, Answer::no);
    screen.恢复.选项[3].click();
    desk.desktop.answers = {Answer::no};
    bool pressable = true;
    desk.meanwhile = [&](const std::string&) { pressable = screen.恢复.确定.usable(); };
    screen.恢复.确定.click();
    EXPECT_FALSE(pressable);
    EXPECT_TRUE(screen.恢复.确定.enabled());
}

TEST(TaxOpening, FailsWithoutWhatItsConfigurationNeeds) {
    const auto openingAfter = [&](std::string_view statement) {
        税控台 fresh;
        fresh.types("{F2}");
        fresh.db().execute(statement);
        long failed = 0;
        try {
            fresh.open();
        } catch (const RuntimeFailure& failure) {
            failed = failure.number();
        }
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
