#include <QApplication>
#include <QFile>
#include <QWidget>
#include <array>

#include <memory>
#include <optional>

#include "db/statement.h"
#include "platform/keyboard.h"
#include "platform/platform.h"
#include "platform/programs.h"
#include "tour/itinerary.h"
#include "tour/patience.h"

namespace desk::tour {

namespace {

constexpr const char* walkIn = "盛远国际贸易有限公司";
constexpr const char* askedAtOnce = "东方设计事务所";
constexpr const char* device = "税控发票开票软件";
constexpr const char* question = "税控发票是否正确打印了？";

/// Columns of the charge lines.
constexpr int itemColumn = 1;
constexpr int printColumn = 7;
constexpr int ticketColumn = 9;

QString qt(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

std::string letterOf(Witness& witness, const char* tenant) {
    return witness.first(sql("Select ID From YZ_意向书信息 Where 承租方='{}' Order By ID Desc", tenant));
}

std::string payments(Witness& witness, const char* tenant, const Fragment& condition) {
    return witness.first(sql("Select Count(*) As SL From YZ_意向金收款 Where 意向书ID={} And {}",
                             numeral(letterOf(witness, tenant)), condition));
}

/// The other program lies over the main window until somebody brings that to the front again.
void bringMainWindow(Tour& tour) {
    tour.then([](Person&) {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->inherits("QMainWindow")) {
                window->raise();
                window->activateWindow();
            }
    });
}

void chooseLetter(Tour& tour, Witness& witness, const char* office, const char* tenant) {
    tour.then([=, &witness](Person& person) {
        person.pick("管理项目",
                    office + QString(" ") +
                        qt(witness.first(sql("Select GYD_Name From 设置管理处 Where GYD_DH='{}'", office))));
    });
    tour.then([=, &witness](Person& person) {
        person.clickNode("意向书", qt(witness.first(sql("Select 意向书编号 From YZ_意向书信息 Where ID={}",
                                                        numeral(letterOf(witness, tenant))))));
    });
}

/// Item, quantity, unit price and ticket type; Enter goes from cell to cell.
void fillLine(Tour& tour, int row, const char* item, const char* quantity, const char* price,
              const char* kind) {
    tour.then([=](Person& person) { person.clickCell("收费", row, itemColumn); });
    tour.then([](Person& person) { person.click("收费项目按钮"); });
    tour.then([=](Person& person) { person.clickLine("收费项目列表", item); });
    for (const char* typed : {quantity, price})
        tour.then([=](Person& person) {
            person.type("单元格编辑", typed);
            person.pressEnter("单元格编辑");
        });
    // The amount was reckoned.
    tour.then([](Person& person) { person.pressEnter("单元格编辑"); });
    tour.then([](Person& person) { person.click("票据类型按钮"); });
    tour.then([=](Person& person) { person.clickLine("票据类型列表", kind); });
}

void pickTicket(Tour& tour, int row, const char* book) {
    tour.then([](Person& person) { person.click("票据簿按钮"); });
    tour.then([=](Person& person) { person.clickLine("票据簿列表", book); });
    tour.then([=](Person& person) { person.clickCell("收费", row, ticketColumn); });
    tour.then([](Person& person) { person.click("票据按钮"); });
    tour.then([](Person& person) { person.clickLine("票据列表", ""); });
}

void tick(Tour& tour, int row) {
    tour.then([=](Person& person) { person.clickCell("收费", row, printColumn); });
}

void press(Tour& tour, const QString& title) {
    tour.step(title, [](Person& person) { person.click("票据打印/保存相关收费数据"); });
}

/// Has the invoice on the screen printed by the other program, up to the question whether it came out.
void print(Tour& tour, const QString& title) {
    tour.then([](Person& person) { person.pick("票据本", "RK0001 税控发票"); });
    tour.step(title + "-选择票据簿", [](Person&) {});
    tour.then([](Person& person) { person.click("打印发票"); });
    tour.awaitBox();
    tour.step(title + "-已开票", [](Person&) {});
}

/// What the other program has printed last, without the date.
QStringList lastInvoice(const QString& journal) {
    QFile file(journal);
    if (!file.open(QIODevice::ReadOnly)) return {};
    QStringList lines = QString::fromUtf8(file.readAll()).trimmed().split("\n\n").last().split('\n');
    if (lines.size() > 1) lines.removeAt(1);
    return lines;
}

void printFourLines(Tour& tour, Witness& witness, const QString& journal) {
    chooseLetter(tour, witness, "01", walkIn);
    const std::array<std::array<const char*, 3>, 4> lines = {{{"租金意向金", "1", "50000"},
                                                              {"物业管理费意向金", "1", "6300"},
                                                              {"水电押金", "2", "500.5"},
                                                              {"钥匙押金", "1", "200"}}};
    for (int row = 0; row < 4; ++row) {
        const auto& [item, quantity, price] = lines[static_cast<std::size_t>(row)];
        fillLine(tour, row, item, quantity, price, "1 税控发票");
        pickTicket(tour, row, "RK0001");
    }
    for (int row = 0; row < 4; ++row) tick(tour, row);
    tour.step("意向金-四行待打印", [](Person&) {});
    press(tour, "税控发票-前三行");
    print(tour, "税控发票-第一张");
    tour.check("第一张发票", [=] {
        return lastInvoice(journal) == QStringList{"发票号码：30843100",
                                                   QString("付款单位：") + walkIn,
                                                   "经营项目：0101 租金",
                                                   "单价：50000",
                                                   "数量：1",
                                                   "金额：50000",
                                                   "经营项目：0102 物业管理费",
                                                   "单价：6300",
                                                   "数量：1",
                                                   "金额：6300",
                                                   "经营项目：0103 水电押金",
                                                   "单价：500.5",
                                                   "数量：2",
                                                   "金额：1001",
                                                   "合计金额：57301.00",
                                                   "大写金额：伍万柒仟叁佰零壹元整",
                                                   "备注：",
                                                   "开票人：01"};
    });
    tour.answer(question, "是");
    // What means something in a key string is put into braces where it is to be typed.
    tour.then([](Person& person) {
        person.type("付款单位", "盛远国际{+}{(}上海{)}{{}有限{}}公司{^}{%}{~}");
        person.type("备注", "钥匙两把");
    });
    print(tour, "税控发票-第二张");
    tour.check("第二张发票", [=] {
        return lastInvoice(journal) == QStringList{"发票号码：30843101",
                                                   "付款单位：盛远国际+(上海){有限}公司^%~",
                                                   "经营项目：0104 钥匙押金",
                                                   "单价：200",
                                                   "数量：1",
                                                   "金额：200",
                                                   "合计金额：200.00",
                                                   "大写金额：贰佰元整",
                                                   "备注：钥匙两把",
                                                   "开票人：01"};
    });
    tour.answer(question, "是");
    bringMainWindow(tour);
    tour.step("意向金-四行已保存", [](Person&) {});
    tour.check("四条收款记录", [&witness] {
        return payments(witness, walkIn, fragment("票据打印=1 And 票据编号='30843100'")) == "3" &&
               payments(witness, walkIn, fragment("票据打印=1 And 票据编号='30843101'")) == "1" &&
               witness.first("Select Count(*) As SL From 票据开票数据 Where 票据编号 Like '3084310_'") ==
                   "4" &&
               witness.first("Select 金额 From 票据 Where 票据编号='30843101'") == "57501";
    });
}

void pickReceipt(Tour& tour, Witness& witness) {
    chooseLetter(tour, witness, "03", askedAtOnce);
    fillLine(tour, 0, "装修押金", "1", "3000", "2 收款收据");
    pickTicket(tour, 0, "RK0004");
    press(tour, "意向金-手选收据已保存");
    tour.check("手选收据", [&witness] {
        return payments(witness, askedAtOnce,
                        fragment("票据打印=0 And 票据类型='2 收款收据' And 票据编号='30843400'")) == "1" &&
               witness.first("Select 付款人 From 票据 Where 票据编号='30843400'") == askedAtOnce;
    });
}

/// An invoice that the cashier says did not come out, for that reason, up to the panel with its remedies. The
/// box that hands the ticket to another module is left unticked: there is none here, and the program would
/// end.
void failToPrint(Tour& tour, Witness& witness, int row, int reason) {
    const QString title = QString("未正常打印-原因%1").arg(reason + 1);
    chooseLetter(tour, witness, "03", askedAtOnce);
    fillLine(tour, row, "租金意向金", "1", "100", "1 税控发票");
    tick(tour, row);
    press(tour, title);
    print(tour, title);
    tour.answer(question, "否");
    tour.step(title + "-选择原因", [=](Person& person) { person.click(QString("选项%1").arg(reason)); });
    if (reason < 3) tour.then([](Person& person) { person.click("退票"); });
}

void printAgain(Tour& tour, Witness& witness, int row, int reason) {
    failToPrint(tour, witness, row, reason);
    tour.then([](Person& person) { person.click("确定"); });
    tour.awaitBox();
    tour.answer(question, "是");
    bringMainWindow(tour);
    tour.check("重新打印后已保存", [=, &witness] {
        return payments(witness, askedAtOnce, fragment("票据打印=1")) == std::to_string(row);
    });
}

void giveUp(Tour& tour, Witness& witness, int row) {
    failToPrint(tour, witness, row, 2);
    // Nothing is taken back for this caller, and the panel stays until nothing is ticked.
    tour.then([](Person& person) { person.click("确定"); });
    tour.then([](Person& person) {
        person.click("取消收款");
        person.click("确定");
    });
    tour.step("未正常打印-已了结", [](Person&) {});
    tour.then([](Person& person) { person.click("关闭"); });
    bringMainWindow(tour);
    tour.check("没有保存", [=, &witness] {
        return payments(witness, askedAtOnce, fragment("票据打印=1")) == std::to_string(row - 1);
    });
}

void payBack(Tour& tour, Witness& witness) {
    chooseLetter(tour, witness, "01", walkIn);
    tour.then([](Person& person) { person.clickCell("收费", 0, itemColumn); });
    tour.step("退款-新凭证", [](Person& person) { person.click("退款处理"); });
    tour.then([](Person& person) {
        person.type("借方金额", "20000");
        person.type("收款人", "张先生");
        person.type("相关情况说明", "客户减少租赁面积");
    });
    tour.step("退款-已支付", [](Person& person) { person.click("确定"); });
    tour.check("退款凭证", [&witness] {
        return payments(witness, walkIn,
                        fragment("处理结束=1 And 退款金额=20000 And 退款说明='客户减少租赁面积'")) == "1" &&
               witness.first("Select 备注 From 报销单表 Where 报销人='张先生' And 报销单类型='意向金退款'") ==
                   "退租金意向金 /客户减少租赁面积";
    });
    tour.then([](Person& person) { person.click("关闭/取消"); });
}

}  // namespace

void takeDeposits(Tour& tour, Witness& witness, Platform& machine, const QString& journal) {
    const auto patience = std::make_shared<std::optional<Patience>>();
    tour.then([=](Person&) { patience->emplace(); });
    tour.step("意向金收取", [](Person& person) { person.choose("意向客户管理", "意向金收取"); });
    printFourLines(tour, witness, journal);
    pickReceipt(tour, witness);
    printAgain(tour, witness, 1, 0);
    printAgain(tour, witness, 2, 1);
    printAgain(tour, witness, 3, 3);
    giveUp(tour, witness, 4);
    payBack(tour, witness);
    tour.step("税控开票软件", [&machine](Person&) { machine.programs.activate(device); });
    tour.then([=, &machine](Person& person) {
        machine.keyboard.send("^q");
        patience->reset();
        person.click("退出");
    });
}

}  // namespace desk::tour
