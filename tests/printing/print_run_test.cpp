#include <QApplication>
#include <QTest>
#include <filesystem>

#include "db/embedded/embedded.h"
#include "desktop/program.h"
#include "platform/virtual_display.h"
#include "printing/counter.h"
#include "sample/sample.h"

namespace desk {
namespace {

constexpr const char* question = "税控发票是否正确打印了？";
constexpr const char* mismatch =
    "税控机上的发票号码与数据库内发票号码不匹配！\r\n可能选择票据簿有无，请重新选择票据簿";
constexpr const char* noNumber = "未能获取税控机上的发票号码，请重新按[打印发票]按钮";

TEST_F(Counter, PrintsWhatIsTypedCharacterByCharacter) {
    auto& first = open("盛远国际贸易（上海）有限公司", {{"租金", "YJ01", "50000.00", "1.00", "50000.00"},
                                                        {"水电", "YJ04", "12.50", "3.00", "37.50"},
                                                        {"物业", "YJ02", "6300.00", "1.00", "6300.00"}});
    first.样张.备注.setText("2026年12月");
    EXPECT_EQ(print(first, {"是"}), QStringList(question));
    const QStringList content = journal();
    ASSERT_EQ(content.size(), 19);
    EXPECT_EQ(content[0], "发票号码：30843100");
    EXPECT_EQ(content.mid(2),
              (QStringList{"付款单位：盛远国际贸易（上海）有限公司", "经营项目：0101 租金", "单价：50000.00",
                           "数量：1.00", "金额：50000.00", "经营项目：0103 水电押金", "单价：12.50",
                           "数量：3.00", "金额：37.50", "经营项目：0102 物业管理费", "单价：6300.00",
                           "数量：1.00", "金额：6300.00", "合计金额：56337.50",
                           "大写金额：伍万陆仟叁佰叁拾柒元伍角整", "备注：2026年12月", "开票人：01"}));
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(handedBack().substr(0, 16), "RK0001,30843100,");

    // The second one finds the program as it is, and logs nobody in. What means something in a key string is
    // told to be typed.
    auto& second =
        open("{+}{^}{%}{~}{(}甲{)}{[}乙{]}{{}丙{}}", {{"钥匙", "YJ05", "100.00", "2.00", "200.00"}});
    EXPECT_EQ(print(second, {"是"}), QStringList(question));
    EXPECT_EQ(printedNumbers(), (QStringList{"30843100", "30843101"}));
    EXPECT_TRUE(journal().contains("付款单位：+^%~(甲)[乙]{丙}"));
    EXPECT_EQ(journal().filter("经营项目：").size(), 4) << "the lines that are empty were passed";
    EXPECT_EQ(handedBack().substr(0, 16), "RK0001,30843101,");
    EXPECT_EQ(devices().size(), 1U);
}

TEST_F(Counter, StartsASecondCopyWhereTheTitleIsAnother) {
    tell("TAX_PROGRAM_TITLE", "开票软件 V2");
    EXPECT_EQ(print(open(), {"是"}), QStringList(question));
    EXPECT_EQ(printedNumbers(), QStringList("30843100")) << "who has just started it does not need the title";
    EXPECT_EQ(print(open(), {"是"}), QStringList(question));
    EXPECT_EQ(devices().size(), 2U);
    EXPECT_EQ(printedNumbers(), (QStringList{"30843100", "30843101"}));
}

/// A program that is not as it should be, and what the screen says and offers then.
struct Trouble {
    const char* variable;
    const char* value;
    QStringList answers;
    QStringList said;
    bool again;     ///< 打印发票 can be pressed again
    bool closable;  ///< the screen can be closed
};

class InTrouble : public Counter, public testing::WithParamInterface<Trouble> {};

TEST_P(InTrouble, PrintsNothing) {
    const Trouble& trouble = GetParam();
    tell(trouble.variable, trouble.value);
    auto& screen = open();
    EXPECT_EQ(print(screen, trouble.answers), trouble.said);
    EXPECT_TRUE(journal().isEmpty());
    EXPECT_EQ(handedBack(), "");
    EXPECT_EQ(screen.打印发票.enabled(), trouble.again);
    EXPECT_EQ(screen.出现错误.visible(), trouble.again);
    EXPECT_EQ(screen.恢复.面板.visible(), !trouble.again);
    EXPECT_EQ(screen.关闭.enabled(), trouble.closable);
    if (!trouble.again) return;
    EXPECT_EQ(print(screen, trouble.answers), trouble.said);
    EXPECT_EQ(devices().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Where, InTrouble,
    testing::Values(Trouble{"TAX_PROGRAM_NO_NUMBER", "1", {"确定"}, {noNumber}, true, false},
                    Trouble{"TAX_PROGRAM_NUMBER", "99999999", {"确定"}, {mismatch}, true, true},
                    Trouble{"TAX_PROGRAM_REFUSE", "打印机未联机", {"否"}, {question}, false, false}));

TEST_F(Counter, PrintsNothingWhileTheProgramIsNotThereYet) {
    tell("TAX_PROGRAM_SLOW", "86400000");
    auto& screen = open();
    // The keys go to whatever has the keyboard, and that is this screen: what it copies, if anything, is no
    // number of a ticket.
    const QStringList said = print(screen, {"确定"});
    EXPECT_TRUE(said == QStringList(noNumber) || said == QStringList(mismatch))
        << said.join("|").toStdString();
    EXPECT_TRUE(screen.出现错误.visible() && screen.打印发票.enabled());
    EXPECT_TRUE(journal().isEmpty());
}

TEST_F(Counter, PrintsNothingWhereTheProgramDiesOnTheWay) {
    tell("TAX_PROGRAM_DIE_AT", "4");
    auto& screen = open();
    // Where the keyboard goes in the midst of a text the run ends without a word, otherwise with the
    // question.
    print(screen, {});
    EXPECT_TRUE(devices().empty());
    EXPECT_TRUE(journal().isEmpty());
    EXPECT_EQ(handedBack(), "");
    ASSERT_TRUE(isOpen());
    EXPECT_FALSE(screen.打印发票.enabled());
    EXPECT_FALSE(screen.关闭.enabled());
}

/// A sample for all tests, and settings that nobody else has.
void prepare(const std::string& folder) {
    const std::string file = folder + "/counter.db";
    embedded::createDatabase(file);
    Connection connection;
    connection.open("Initial Catalog='" + file + "';Data Source='(embedded)'", std::chrono::seconds(10));
    sample::Size size;
    size.leads = 60;
    size.units = 40;
    sample::fill(connection, size, SystemClock().today(), TAX_PROGRAM);
    qputenv("COUNTER_DATABASE", file.c_str());
    qputenv("XDG_CONFIG_HOME", folder.c_str());
}

}  // namespace
}  // namespace desk

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
    const desk::VirtualDisplay display(desk::VirtualDisplay::Manager::openbox);
    if (!display.isUp()) {
        std::fprintf(stderr, "there is no Xvfb\n");
        return 1;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    desk::desktop::dress();
    QTemporaryDir folder;
    desk::prepare(folder.path().toStdString());
    return RUN_ALL_TESTS();
}
