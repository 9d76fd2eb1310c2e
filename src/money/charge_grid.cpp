#include "money/charge_grid.h"

#include "base/number.h"
#include "ui/batch.h"

namespace desk {

namespace {

std::string shownAmount(const Recordset::Field& amount) {
    return amount.isNull() ? std::string() : formatNumber(amount.number(), "0.00");
}

}  // namespace

收费列表::收费列表(Place place, std::string name)
    : Grid(place, std::move(name),
           "<序|<收费项目      |<科目编号|>数量  |>单价    |>金额      |<票据类型    |^打印|<票据簿编号|"
           "<票据编号  ||") {
    setColumnWidth(退款标记, 0);
    setColumnWidth(记录ID, 0);
    clear();
}

void 收费列表::clear() {
    setSelection(GridSelection::cell);
    Grid::clear();
    const auto size = static_cast<std::size_t>(rows());
    行打印标记.assign(size, false);
    行收费项目代号.assign(size, {});
    行税控标记.assign(size, false);
    行票据ID.assign(size, 0);
}

int 收费列表::append(std::vector<std::string> cells, std::string_view picture) {
    const Batch adding(*this);
    const int row = addRow(std::move(cells));
    setPicture(row, picture);
    setCellAlignment(row, 打印, Align::centre);
    const auto size = static_cast<std::size_t>(rows());
    行打印标记.resize(size);
    行收费项目代号.resize(size);
    行税控标记.resize(size);
    行票据ID.resize(size);
    return row;
}

void 收费列表::appendSaved(Recordset& payment) {
    const int row =
        append({std::to_string(rows()), payment["收费项目"].text(), payment["科目编号"].text(),
                shownAmount(payment["数量"]), shownAmount(payment["单价"]), shownAmount(payment["金额"]),
                payment["票据类型"].text(), "", payment["票据入库单编号"].text(), payment["票据编号"].text(),
                payment["处理结束"].flag() ? "OK" : "", payment["ID"].text()},
               payment["票据打印"].flag() ? 打印图::已打印 : 打印图::已存手选);
    行收费项目代号[static_cast<std::size_t>(row)] = payment["收费项目代号"].text();
}

void 收费列表::appendBlank() {
    append({std::to_string(rows())}, 打印图::手选);
}

bool 收费列表::waits(int row) const {
    return picture(row) == 打印图::手选 || picture(row) == 打印图::待打印;
}

bool 收费列表::isIncomplete(int row) const {
    return text(row, 收费项目).empty() || text(row, 金额).empty();
}

bool 收费列表::isBlank(int row) const {
    return text(row, 收费项目).empty() && text(row, 金额).empty();
}

void 收费列表::togglePrinting(int row) {
    const auto at = static_cast<std::size_t>(row);
    if (picture(row) == 打印图::手选) {
        setPicture(row, 打印图::待打印);
        takeTicket(row, "", "", 0);
        行打印标记[at] = true;
        setRowData(row, 1);
    } else if (picture(row) == 打印图::待打印) {
        setPicture(row, 打印图::手选);
        行打印标记[at] = false;
    }
}

void 收费列表::takeTicket(int row, std::string_view book, std::string_view ticket, std::int32_t id) {
    setText(row, 票据簿编号, book);
    setText(row, 票据编号, ticket);
    行票据ID[static_cast<std::size_t>(row)] = id;
}

void 收费列表::computeAmount(int row) {
    setText(row, 金额, formatNumber(val(text(row, 数量)) * val(text(row, 单价)), "0.00"));
}

}  // namespace desk
