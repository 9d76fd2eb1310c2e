#include <QDate>
#include <QInputDialog>

#include "tax_program/at_the_device.h"

namespace desk::tax {
namespace {

TEST_F(AtTheDevice, WritesOneLineAFieldInItsJournal) {
    logIn();
    begin("盛远国际+(上海){有限}公司");
    fillLine("0101", "50000", "1", "50000.00");
    fillLine("", "", "", "");
    fillLine("0102", "6.5", "12", "");
    type("一季度");
    EXPECT_EQ(form().figures.text(), "50078.00");
    EXPECT_EQ(form().words.text(), "伍万零柒拾捌元整");
    press(Qt::Key_F9);
    EXPECT_EQ(journal(),
              (QStringList{"发票号码：30843100", "开票日期：" + QDate::currentDate().toString("yyyy-MM-dd"),
                           "付款单位：盛远国际+(上海){有限}公司", "经营项目：0101 租金", "单价：50000",
                           "数量：1", "金额：50000.00", "经营项目：0102 物业管理费", "单价：6.5", "数量：12",
                           "金额：78.00", "合计金额：50078.00", "大写金额：伍万零柒拾捌元整", "备注：一季度",
                           "开票人：01", "", ""}));
    EXPECT_EQ(news(), "发票 30843100 已打印\n\n盛远国际+(上海){有限}公司\n合计 50078.00 元");
    press(Qt::Key_F9);
    EXPECT_EQ(journal().size(), 17) << "there is nothing to print";

    begin("启明");
    fillLine("0201", "1", "1", "1");
    press(Qt::Key_F9);
    EXPECT_EQ(journal().mid(16, 1), QStringList("发票号码：30843101"));
    EXPECT_TRUE(journal().contains("备注："));
}

TEST_F(AtTheDevice, TakesItemsByCodeAndByPosition) {
    logIn();
    begin("盛远");
    type("0999");
    press(Qt::Key_Return);
    EXPECT_EQ(form().lines[0].item.text(), "无此项目");
    EXPECT_EQ(form().lines[0].code.selectedText(), "0999");
    type("0103");
    press(Qt::Key_Return);
    EXPECT_EQ(form().lines[0].item.text(), "水电押金");
    EXPECT_EQ(focused(), "单价1");
    press(Qt::Key_F6);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return})
        press(key);
    EXPECT_EQ(form().lines[1].code.text(), "0102");
    EXPECT_EQ(focused(), "单价2");
    press(Qt::Key_F6);
    // The fourth row, counted in the height of a row as scripts do.
    auto& list = form().itemList;
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(20, 24 / 2 + 24 * (4 - 1)));
    EXPECT_EQ(form().lines[2].item.text(), "钥匙押金");
    EXPECT_EQ(focused(), "单价3");
    press(Qt::Key_F6);
    press(Qt::Key_F6);
    EXPECT_EQ(form().lines[0].code.selectedText(), "0103") << "what is typed now replaces it";
    press(Qt::Key_F2);
    press(Qt::Key_F6);
    press(Qt::Key_Return);
    EXPECT_EQ(focused(), "备注") << "an empty code ends the lines";
}

TEST_F(AtTheDevice, ProposesAnAmountThatMayBeTypedOver) {
    logIn();
    begin("盛远");
    type("0101");
    press(Qt::Key_Return);
    type("0.1");
    press(Qt::Key_Tab);
    type("3");
    press(Qt::Key_Tab);
    EXPECT_EQ(form().lines[0].amount.selectedText(), "0.30");
    type("0.29");
    EXPECT_EQ(form().figures.text(), "0.29");
    EXPECT_EQ(form().words.text(), "贰角玖分");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    type("4");
    press(Qt::Key_Tab);
    EXPECT_EQ(form().lines[0].amount.text(), "0.29") << "what was typed stands";
}

TEST_F(AtTheDevice, PrintsNothingThatIsIncomplete) {
    logIn();
    const auto refusalOf = [&](const char* payer, const char* code, const char* price, const char* quantity,
                               const char* amount) {
        begin(payer);
        fillLine("0101", "1", "1", "1");
        fillLine("", "", "", "");
        form().lines[2].code.setText(code);
        form().lines[2].price.setText(price);
        form().lines[2].quantity.setText(quantity);
        form().lines[2].amount.setText(amount);
        press(Qt::Key_F9);
        return boxSays();
    };
    EXPECT_EQ(refusalOf("", "", "", "", ""), "请输入付款单位");
    EXPECT_EQ(refusalOf("甲", "", "1", "1", "1"), "第3行未选择经营项目");
    EXPECT_EQ(refusalOf("甲", "0101", "元", "1", "1"), "第3行的单价不是数字");
    EXPECT_EQ(refusalOf("甲", "0101", "1", "", "1"), "第3行的数量不是数字");
    EXPECT_EQ(refusalOf("甲", "0101", "1", "1", "1e13"), "第3行的金额不是数字");
    begin("甲");
    press(Qt::Key_F9);
    EXPECT_EQ(boxSays(), "请输入经营项目");
    EXPECT_TRUE(journal().isEmpty());
    EXPECT_EQ(focused(), "编号1") << "one can go on where one was";
}

TEST_F(AtTheDevice, TakesThePrintedInvoiceBackOnce) {
    logIn();
    press(Qt::Key_F5);
    press(Qt::Key_Return);
    EXPECT_EQ(boxSays(), "没有可退的发票 ");
    begin("盛远");
    fillLine("0101", "1", "1", "1");
    press(Qt::Key_F9);
    press(Qt::Key_F5);
    EXPECT_EQ(focused(), "退票号码");
    EXPECT_EQ(program->main->takeBack.number.selectedText(), "30843100");
    press(Qt::Key_Tab);
    type("打印内容有误");
    press(Qt::Key_Return);
    EXPECT_EQ(news(), "发票 30843100 已退票");
    const QStringList end = journal().mid(journal().size() - 6);
    EXPECT_EQ(end,
              (QStringList{"退票号码：30843100", "退票日期：" + QDate::currentDate().toString("yyyy-MM-dd"),
                           "退票原因：打印内容有误", "操作员：01", "", ""}));
    press(Qt::Key_F5);
    press(Qt::Key_Return);
    EXPECT_EQ(boxSays(), "没有可退的发票 30843100");
}

TEST_F(AtTheDevice, RemembersWhereItsRollIs) {
    logIn();
    begin("盛远");
    fillLine("0101", "1", "1", "1");
    press(Qt::Key_F9);
    program.reset();
    logIn();
    press(Qt::Key_F2);
    EXPECT_EQ(form().number.text(), "30843101");
    press(Qt::Key_F8);
    auto* question = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(question->textValue(), "30843101");
    question->setTextValue("");
    question->accept();
    press(Qt::Key_F2);
    EXPECT_EQ(form().number.text(), "30843101");
    press(Qt::Key_F8);
    question = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
    question->setTextValue("00000099");
    question->accept();
    EXPECT_EQ(news(), "已装入起始号码为 00000099 的发票卷");
    begin("盛远");
    fillLine("0101", "1", "1", "1");
    press(Qt::Key_F9);
    press(Qt::Key_F2);
    EXPECT_EQ(form().number.text(), "00000100");
}

TEST(AmountsInWords, AreSaidAsOnABanknote) {
    const std::pair<qint64, const char*> amounts[] = {{0, "零元整"},
                                                      {1, "壹分"},
                                                      {10, "壹角整"},
                                                      {105, "壹元零伍分"},
                                                      {1234567, "壹万贰仟叁佰肆拾伍元陆角柒分"},
                                                      {100000, "壹仟元整"},
                                                      {10050000, "壹拾万零伍佰元整"},
                                                      {1000800, "壹万零捌元整"},
                                                      {10000000100, "壹亿零壹元整"},
                                                      {2'0000'0000'0000'00, "贰万亿元整"},
                                                      {-250, "负贰元伍角整"}};
    for (const auto& [hundredths, words] : amounts) EXPECT_EQ(inWords(hundredths), words);
    EXPECT_EQ(inFigures(-5), "-0.05");
    EXPECT_EQ(inFigures(1234567), "12345.67");
}

}  // namespace
}  // namespace desk::tax

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName("tax-program");
    // The log-in goes while the main window is not there yet.
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
