#include "money/tax_invoice.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "base/text.h"
#include "db/statement.h"
#include "money/deposits.h"
#include "platform/clock.h"
#include "ui/batch.h"

namespace desk {

namespace {

/// Those who have invoices printed here, as they call themselves in the tag of the screen.
constexpr const char* deposits = "意向金收取";
constexpr const char* frontDesk = "前台收款";
constexpr const char* internalExchange = "内换票处理";
constexpr const char* exchange = "调换票处理";

/// A button that is out of use while it lives, if its screen is there that long.
class OutOfUse {
  public:
    explicit OutOfUse(Button& button) : button_(button), screen_(button.screen()) {
        button_.setEnabled(false);
    }
    ~OutOfUse() {
        if (screen_.isThere()) button_.setEnabled(true);
    }
    OutOfUse(const OutOfUse&) = delete;
    OutOfUse& operator=(const OutOfUse&) = delete;

  private:
    Button& button_;
    ScreenWatch screen_;
};

/// A run of the tax program: whatever fails in it ends it without a word, and leaves the buttons as they are.
template <class Run>
void trapped(Run run) {
    try {
        run();
    } catch (const RuntimeFailure&) {
    } catch (const 窗体已关闭&) {
    }
}

}  // namespace

Frm税控发票打印::Frm税控发票打印(Application& app)
    : 打印窗体(screenName, "税控发票打印", WindowKind::dialog, 15000, 9300),
      税控(*this, app, 样张, configuration_, {打印发票, 关闭, 出现错误}),
      app_(app) {
    出现错误.setVisible(false);
    样张.票据本.selected += [this] { chooseBook(); };
    打印发票.clicked += [this] { print(); };
    关闭.clicked += [this] { close(); };
    恢复.确定.clicked += [this] { recover(); };
}

void Frm税控发票打印::load() {
    fillBooks();
    样张.开票日期.setText(app_.desktop.shortDate(app_.platform.clock.today()));
    样张.开票人.setText(app_.session.登录姓名);
    样张.备注.setText("");
    loadConfiguration();
}

void Frm税控发票打印::fillBooks() {
    const auto& own = app_.session.登录部门编号;
    const Batch filling(样张.票据本);
    try {
        addBooksOf(own);
        for (auto& sharing : Recordset(
                 app_.主连接, sql("Select 领用部门编号 From 票据共用设置 Where 共用部门编号='{}'", own)))
            addBooksOf(trimmed(sharing["领用部门编号"].text()));
    } catch (const RuntimeFailure&) {
        // What has come so far can be used.
    }
}

void Frm税控发票打印::addBooksOf(std::string_view department) {
    for (auto& book : Recordset(
             app_.主连接,
             sql("SELECT 票据领用清单.入库单编号, 票据领用记录.领用部门代号, 票据入库单.票据类型编号, "
                 "票据类型.票据类型 FROM 票据领用记录 INNER JOIN 票据领用清单 ON "
                 "票据领用记录.票据领用记录编号 = 票据领用清单.领用记录编号 INNER JOIN 票据入库单 ON "
                 "票据领用清单.入库单编号 = 票据入库单.入库单编号 INNER JOIN 票据类型 ON "
                 "票据入库单.票据类型编号 = 票据类型.票据类型代号 Where (票据领用清单.核销日期 Is Null) And "
                 "(票据领用清单.归还日期 Is Null) And (票据类型.定额 = 0) AND 票据领用记录.领用部门代号 = "
                 "'{}' AND 票据入库单.税控=1 Order by 票据领用清单.入库单编号",
                 department)))
        样张.票据本.addItem(book["入库单编号"].text() + " " + book["票据类型"].text());
}

void Frm税控发票打印::loadConfiguration() {
    const ScreenWatch screen(*this);
    const auto device = 读取税控机(app_);
    if (!device) return app_.tell("税控软件的路径及文件名未设置，请设置这些参数");
    打印发票.tag = device->软件名称;
    样张.发票.tag = device->ID;
    样张.标题.tag = device->启动后名称;
    configuration_.软件 = 软件位置::分解(打印发票.tag);
    if (const auto person = 读取操作员(app_, device->ID)) {
        configuration_.操作员 = *person;
    } else {
        app_.tell("您未被设置为税控机操作人员");
        if (!screen.isThere()) return;
        打印发票.setEnabled(false);
    }
    configuration_.打印步骤 = 读取步骤(app_, "SKStep", device->ID);
    configuration_.退票步骤 = 读取步骤(app_, "SKTPStep", device->ID);
    configuration_.收费项目对照 = 读取收费项目(app_, device->ID);
    未打印标记_ = true;
}

void Frm税控发票打印::chooseBook() {
    const Hourglass busy(app_.desktop);
    const Batch filling(样张.空白票据);
    const std::string_view book = 样张.票据本.text();
    样张.空白票据.clear();
    样张.发票号码.setCaption("");
    try {
        // The blank behind the book's number is part of what is compared.
        for (auto& ticket :
             Recordset(app_.主连接,
                       sql("Select 票据编号,ID From 票据  Where 开票日期 Is Null and 作废日期 Is Null And "
                           "入库单编号='{}' Order By 票据编号",
                           book.substr(0, book.find(' ') + 1))))
            样张.空白票据.addItem(ticket["票据编号"].text(), static_cast<long>(ticket["ID"].integer()));
        if (样张.空白票据.count() > 0) 样张.空白票据.setIndex(0);
    } catch (const RuntimeFailure&) {
        // What has come so far can be used.
    }
}

void Frm税控发票打印::print() {
    trapped([this] {
        if (税控.运行(税控运行::用途::打印) && cameOut()) finishPrinting();
    });
}

void Frm税控发票打印::税控退票处理() {
    trapped([this] {
        if (税控.运行(税控运行::用途::退票) && cameOut()) 关闭.setEnabled(true);
    });
}

bool Frm税控发票打印::cameOut() {
    const ScreenWatch screen(*this);
    // A key that is still on its way to the tax program must not confirm what nobody has looked at.
    const auto answer =
        app_.desktop.messageBox({"税控发票是否正确打印了？", {}, Icon::question, Buttons::yesNo, Answer::no});
    if (!screen.isThere()) return false;
    未打印标记_ = answer != Answer::yes;
    if (未打印标记_) 恢复.面板.open();
    return !未打印标记_;
}

void Frm税控发票打印::finishPrinting() {
    if (std::string* taken = 交还处()) *taken = 交还文本();
    app_.screens.unload(*this);
}

std::string* Frm税控发票打印::交还处() {
    if (tag == frontDesk) return &外部窗体::须有(外部.前台收款Command16).tag;
    if (tag == internalExchange) return &外部窗体::须有(外部.内换票处理Command5).tag;
    if (tag == exchange) return &外部窗体::须有(外部.调换票处理Command4).tag;
    if (tag == deposits) return &app_.screens.get<Frm意向金收取>().票据打印保存.tag;
    return nullptr;
}

std::string Frm税控发票打印::交还文本() const {
    return fmt::format("{},{},{}", codeBeforeBlank(样张.票据本.text()), 样张.空白票据.text(), 所选票据ID());
}

std::int32_t Frm税控发票打印::所选票据ID() const {
    const Item* ticket = 样张.空白票据.selectedItem();
    if (ticket == nullptr) throw RuntimeFailure(failure::invalidIndex, "无效的属性数组索引");
    return static_cast<std::int32_t>(ticket->data);
}

void Frm税控发票打印::recover() {
    const ScreenWatch screen(*this);
    if (恢复.退票.checked()) {
        恢复.面板.close();
        app_.desktop.letEventsRun();
        if (!screen.isThere()) return;
        退票处理();
        if (!screen.isThere()) return;
        if (恢复.重新打印.checked()) {
            print();
            if (!screen.isThere()) return;
            恢复.面板.tag = 未正常打印::非正常;
        } else {
            关闭.setEnabled(true);
        }
    }
    if (恢复.重新打印.checked()) {
        {
            // The panel stays up meanwhile, and a run inside the run would type into its invoice.
            const OutOfUse once(恢复.确定);
            print();
        }
        if (!screen.isThere()) return;
        恢复.面板.close();
    }
    if (恢复.取消收款.checked()) cancelCharge();
    if (恢复.重新打印.checked() || 恢复.退票.checked() || 恢复.取消收款.checked()) return;
    恢复.了结();
    关闭.setEnabled(true);
}

void Frm税控发票打印::cancelCharge() {
    if (tag == frontDesk) {
        const std::string& charged = 外部窗体::须有(外部.前台收款Frame3).tag;
        if (charged.empty()) return;
        app_.主连接.execute(
            sql("Update WYZJ  Set ZJ_SKRQ=Null,收款方式 =Null,收款人 = Null Where ZJ_ID In({}),",
                numerals(split(charged, ','))));
        外部窗体::须有(外部.前台收款Command16).setEnabled(false);
        app_.screens.unload(*this);
    } else if (tag == internalExchange || tag == exchange) {
        app_.screens.unload(*this);
    }
}

void Frm税控发票打印::close() {
    const std::string& closedOut = 恢复.面板.tag;
    if (!未打印标记_ && closedOut.empty() && (tag == frontDesk || tag == internalExchange))
        *交还处() = 交还文本();
    if (未打印标记_ || closedOut.empty() || closedOut == 未正常打印::非正常) app_.screens.unload(*this);
}

void Frm税控发票打印::退票处理() {
    退票原因_ = 恢复.原因(退票原因_);
    退票窗体& dialog = 外部窗体::须有(外部.退票);
    dialog.tag = "票据打印";
    dialog.Text3.setText(退票原因_);
    dialog.Text2.tag = 样张.合计小写.caption();
    dialog.Text1.setText(样张.空白票据.text());
    dialog.Text4.setText(样张.票据本.text());
    dialog.Text3.tag = std::to_string(所选票据ID());
    const ScreenWatch screen(*this);
    app_.desktop.showModally(dialog);
    if (screen.isThere()) 样张.空白票据.removeItem(样张.空白票据.index());
}

}  // namespace desk
