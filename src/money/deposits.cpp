#include "money/deposits.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "base/number.h"
#include "base/text.h"
#include "db/statement.h"
#include "intent/letter_tree.h"
#include "money/receipt_books.h"
#include "platform/clock.h"
#include "session/helpers.h"
#include "ui/batch.h"

namespace desk {

namespace {

using C = 收费列表;

constexpr const char* taxScreen = "frm税控发票打印";
constexpr const char* receiptScreen = "frm票据打印";

}  // namespace

Frm意向金收取::Frm意向金收取(Application& app)
    : Screen(screenName, "意向金收取", WindowKind::child, 18000, 10200),
      退款(*this, app, 收费, items_),
      app_(app) {
    意向书.hint = "请先选择管理项目";
    收费.hint = "请先选择意向书";
    票据簿.list.hint = "没有可用的票据簿，请先选择票据类型";
    票据.list.hint = "该票据簿没有空白票据";
    行操作.setVisible(false);
    管理项目.selected += [this] { chooseOffice(); };
    意向书.nodeClicked += [this](TreeNode& node) { chooseLetter(node); };
    收费.clicked += [this] { clickCell(); };
    // What lies over a cell serves that one only.
    收费.currentChanged += [this] { hidePopUps(); };
    单元格编辑.entered += [this] { enterTyped(); };
    收费项目.list.clicked += [this](int line) { takeItem(line); };
    票据类型.list.clicked += [this](int line) { takeType(line); };
    票据簿.list.clicked += [this](int line) { takeBook(line); };
    票据.list.clicked += [this](int line) { takeTicket(line); };
    退款处理.clicked += [this] { 退款.open(toInt32(行操作.tag)); };
    退款.refunded += [this](int row) {
        if (toInt32(行操作.tag) == row) offerRefund(row);
    };
    票据打印保存.clicked += [this] { printAndSave(); };
    退出.clicked += [this] { app_.screens.unload(*this); };
}

void Frm意向金收取::load() {
    状态栏.setPanel(0, app_.session.登录部门名称 + " ");
    状态栏.setPanel(1, app_.session.登录岗位名称 + " ");
    填充管理处(app_, 管理项目);
    fillTicketTypes();
    fillChargeItems();
}

void Frm意向金收取::fillTicketTypes() {
    const Batch filling(票据类型.list);
    for (auto& type : Recordset(
             app_.主连接, "SELECT 票据类型代号, 票据类型, 税控, 定额 From 票据类型 ORDER BY 票据类型代号"))
        票据类型.list.addItem(type["票据类型代号"].text() + " " + type["票据类型"].text(),
                              static_cast<long>(type["税控"].integer()));
}

void Frm意向金收取::fillChargeItems() {
    const Batch filling(收费项目.list);
    for (auto& item : Recordset(
             app_.主连接,
             "Select SETUPSFXM.ID, DH, XM, 收费类别, 对应科目, 票据类型, 科目名称 From SETUPSFXM Inner Join "
             "财务科目 On SETUPSFXM.对应科目=财务科目.科目代号 Where (收费类别 = N'押金')")) {
        收费项目.list.addItem(item["XM"].text());
        items_.push_back({item["对应科目"].text(), item["DH"].text(), item["科目名称"].text()});
    }
}

void Frm意向金收取::chooseOffice() {
    if (!管理项目.hasSelection()) return;
    意向书.hint = "该管理项目没有可收取意向金的意向书";
    Recordset letters(app_.主连接,
                      sql("Select * From YZ_意向书信息 Where  管理处代号='{}' AND 意向金收取日期 is Null AND "
                          " 流转通过=1  Order By Len(意向书编号),意向书编号",
                          管理项目.code()));
    填充意向书树(意向书, {.root = "意向书列表", .rootKey = "Y", .keyColumn = "ID"}, letters);
}

void Frm意向金收取::chooseLetter(const TreeNode& node) {
    const auto id = 意向书键(node);
    if (id.empty()) return;
    hidePopUps();
    退款.close();
    行操作.setVisible(false);
    收费.clear();
    {
        Recordset letter(app_.主连接,
                         sql("Select YZ_意向书信息.*,设置管理处.GYD_Name  From YZ_意向书信息 Inner Join "
                             "设置管理处 ON YZ_意向书信息.管理处代号=设置管理处.GYD_DH  Where ID='{}'",
                             id));
        if (letter.atEnd()) return forgetLetter();
        意向书信息.show(letter);
    }
    showCharges(id);
}

/// Another seat has deleted it.
void Frm意向金收取::forgetLetter() {
    清空文本框(*this);
    意向书信息.登记编号.tag.clear();
}

void Frm意向金收取::showCharges(const std::string& 意向书ID) {
    const Refill filling(收费);
    for (auto& payment : Recordset(
             app_.主连接,
             sql("Select ID,  意向书ID, 收款日期, 票据入库单编号, 票据编号, 收费项目, 科目编号, 数量, 单价, "
                 "金额, 票据类型, 收款人, 退款日期, 退款金额, 退款人, 备注, 处理结束, 票据打印, "
                 "收费项目代号 From YZ_意向金收款 Where 意向书ID={}",
                 numeral(意向书ID))))
        收费.appendSaved(payment);
    收费.appendBlank();
}

void Frm意向金收取::hidePopUps() {
    for (CellList* list : {&收费项目, &票据类型, &票据簿, &票据}) list->close();
    单元格编辑.close();
}

void Frm意向金收取::clickCell() {
    hidePopUps();
    const int row = 收费.row();
    if (row < 收费.fixedRows()) return;
    offerRefund(row);
    收费.setSelection(收费.isSaved(row) ? GridSelection::row : GridSelection::cell);
    if (收费.isSaved(row)) return;
    const bool printed = 收费.行打印标记[static_cast<std::size_t>(row)];
    switch (收费.column()) {
        case C::收费项目:
            收费项目.offer();
            return openEditor();
        case C::数量:
        case C::单价:
        case C::金额:
            return openEditor();
        case C::票据类型:
            return 票据类型.offer();
        case C::打印:
            return 收费.togglePrinting(row);
        case C::票据簿编号:
            if (!printed) 票据簿.offer();
            return;
        case C::票据编号:
            if (printed) return;
            if (收费.text(row, C::票据簿编号).empty()) return app_.tell("请选择票据簿编号");
            return 票据.offer();
        default:
            return;
    }
}

void Frm意向金收取::offerRefund(int row) {
    行操作.tag = std::to_string(row);
    行操作.setAnchor(&收费, Cell{row, C::序});
    行操作.setVisible(true);
    const bool refundable = 收费.isSaved(row) && 收费.text(row, C::退款标记).empty();
    退款处理.setVisible(refundable);
    退款处理.setEnabled(refundable);
}

void Frm意向金收取::moveTo(int row, int column) {
    收费.setCurrent(row, column);
    clickCell();
}

void Frm意向金收取::openEditor() {
    单元格编辑.setNumeric(收费.column() != C::收费项目);
    单元格编辑.open();
}

void Frm意向金收取::enterTyped() {
    const int row = 收费.row();
    const int column = 收费.column();
    if (column == C::单价) 收费.computeAmount(row);
    if (column < C::票据类型) moveTo(row, column + 1);
}

void Frm意向金收取::takeItem(int line) {
    const int row = 收费.row();
    const auto& item = items_.at(static_cast<std::size_t>(line));
    // The editor over the cell holds the text before.
    hidePopUps();
    收费.setText(row, C::收费项目, 收费项目.item(line).text);
    收费.setText(row, C::科目编号, item.对应科目);
    收费.行收费项目代号[static_cast<std::size_t>(row)] = item.项目代号;
    moveTo(row, C::数量);
}

void Frm意向金收取::takeType(int line) {
    const int row = 收费.row();
    const auto at = static_cast<std::size_t>(row);
    const Item& type = 票据类型.item(line);
    收费.setText(row, C::票据类型, type.text);
    收费.行税控标记[at] = type.data == 1;
    票据类型.close();
    if (row != 收费.lastRow()) return 收费.setRow(收费.lastRow());
    if (收费.行打印标记[at]) return 收费.setRowData(row, 1);
    票据簿列表(app_, 收费, row, 票据簿.list);
    moveTo(row, C::票据簿编号);
}

void Frm意向金收取::takeBook(int line) {
    const auto book = 票据簿.item(line).text;
    票据簿.close();
    收费.setText(收费.row(), C::票据簿编号, book);
    填充空白票据(app_, book, 票据.list);
}

void Frm意向金收取::takeTicket(int line) {
    const int row = 收费.row();
    const Item& ticket = 票据.item(line);
    收费.takeTicket(row, 收费.text(row, C::票据簿编号), ticket.text, static_cast<std::int32_t>(ticket.data));
    票据.close();
    if (row == 收费.lastRow()) 收费.appendBlank();
}

void Frm意向金收取::printAndSave() {
    const int n = 收费.isBlank(收费.lastRow()) ? 2 : 1;
    const int last = 收费.rows() - n;
    if (!isComplete(last) || !collectLines(last)) return;
    for (const auto& group : 打印分组(收费行票据信息_))
        if (!printGroup(group)) return;
    try {
        票据消耗(app_, 收费, n, 意向书信息["承租方"].text());
    } catch (const RuntimeFailure&) {
        // The money has been taken, whatever became of the paper.
    }
    save(last);
}

bool Frm意向金收取::isComplete(int last) {
    for (int row = 1; row <= last; ++row) {
        if (!收费.isIncomplete(row)) continue;
        const ScreenWatch screen(*this);
        app_.tell(fmt::format("第{}行数据不完整，请核对", row));
        if (!screen.isThere()) return false;
        hidePopUps();
        收费.setCurrent(row, C::收费项目);
        openEditor();
        return false;
    }
    return true;
}

bool Frm意向金收取::collectLines(int last) {
    收费行票据信息_.clear();
    for (int row = 1; row <= last; ++row) {
        if (!收费.waits(row)) continue;
        if (收费.picture(row) == 打印图::待打印) {
            添加票据信息(收费行票据信息_, 收费, row);
        } else if (收费.text(row, C::票据编号).empty()) {
            app_.tell("请输入票据编号");
            return false;
        }
    }
    return true;
}

bool Frm意向金收取::printGroup(const 打印组& group) {
    const auto screen = group.名称 == 打印组::税控 ? taxScreen : receiptScreen;
    std::vector<int> ticket;
    for (const int row : group.行) {
        if (ticket.size() == 开票内容::最多项数) {
            if (!printTicket(screen, ticket)) return false;
            ticket.clear();
        }
        ticket.push_back(row);
    }
    return printTicket(screen, ticket);
}

bool Frm意向金收取::printTicket(std::string_view screen, const std::vector<int>& rows) {
    开票内容 content{意向书信息["承租方"].text(), {}};
    for (const int row : rows) {
        const auto& line = 收费行票据信息_[static_cast<std::size_t>(row)];
        content.项目.push_back(
            {line.项目, line.收费项目代号, line.单价.text(), numberText(line.数量), line.金额.text()});
    }
    auto& form = dynamic_cast<打印窗体&>(app_.screens.get(screen));
    form.tag = "意向金收取";
    form.填写(content);
    票据打印保存.tag.clear();
    const ScreenWatch watch(*this);
    app_.desktop.showModally(form);
    if (!watch.isThere() || 票据打印保存.tag.empty()) return false;
    const auto used = split(票据打印保存.tag, ',');
    if (used.size() < 3) throw RuntimeFailure(failure::subscript, "下标越界");
    for (const int row : rows) 收费.takeTicket(row, used[0], used[1], toInt32(used[2]));
    return true;
}

void Frm意向金收取::save(int last) {
    const Hourglass busy(app_.desktop);
    Recordset payments(app_.主连接,
                       "Select  ID, 意向书ID, 收款日期, 票据入库单编号, 票据编号, 收费项目, 科目编号, 数量, "
                       "单价, 金额, 票据类型, 收款人, 退款日期, 退款金额, 退款人, 备注, 处理结束, 票据打印, "
                       "收费项目代号 From YZ_意向金收款 Where 意向书ID=0",
                       Rows::updatable);
    bool any = false;
    for (int row = 1; row <= last; ++row) {
        if (!收费.waits(row) || !收费.text(row, C::记录ID).empty()) continue;
        const bool printed = 收费.picture(row) == 打印图::待打印;
        payments.addNew();
        payments["意向书ID"] = 意向书信息.id();
        payments["收费项目"] = 收费.text(row, C::收费项目);
        payments["科目编号"] = 收费.text(row, C::科目编号);
        payments["数量"] = val(收费.text(row, C::数量));
        payments["单价"] = val(收费.text(row, C::单价));
        payments["金额"] = val(收费.text(row, C::金额));
        payments["票据类型"] = 收费.text(row, C::票据类型);
        payments["收款日期"] = app_.platform.clock.now();
        payments["票据打印"] = printed;
        payments["票据入库单编号"] = 收费.text(row, C::票据簿编号);
        payments["票据编号"] = 收费.text(row, C::票据编号);
        payments["收费项目代号"] = 收费.行收费项目代号[static_cast<std::size_t>(row)];
        payments.update();
        收费.setPicture(row, printed ? 打印图::已打印 : 打印图::已存手选);
        收费.setText(row, C::记录ID, payments["ID"].text());
        any = true;
    }
    if (any) app_.saved(意向书信息.登记编号.text());
}

}  // namespace desk
