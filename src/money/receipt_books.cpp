#include "money/receipt_books.h"

#include "base/money.h"
#include "base/number.h"
#include "base/text.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "ui/batch.h"

namespace desk {

namespace {

void addBooksOf(Application& app, std::string_view department, std::string_view type, ListBox& books) {
    for (auto& book : Recordset(
             app.主连接,
             sql("Select 票据领用清单.入库单编号, 票据领用记录.领用部门代号, 票据入库单.票据类型编号, "
                 "票据类型.票据类型,票据类型.税控 From 票据领用记录 INNER JOIN 票据领用清单 ON "
                 "票据领用记录.票据领用记录编号 = 票据领用清单.领用记录编号 INNER JOIN 票据入库单 ON "
                 "票据领用清单.入库单编号 = 票据入库单.入库单编号 INNER JOIN 票据类型 ON "
                 "票据入库单.票据类型编号 = 票据类型.票据类型代号 Where (票据领用清单.核销日期 Is Null) And "
                 "(票据领用清单.归还日期 Is Null) And (票据类型.定额 = 0) AND 票据领用记录.领用部门代号 = "
                 "'{}'  AND 票据类型.票据类型代号='{}' Order By 票据领用清单.入库单编号",
                 department, type)))
        books.addItem(book["入库单编号"].text(), static_cast<long>(book["税控"].integer()));
}

}  // namespace

void 票据簿列表(Application& app, const 收费列表& charges, int row, ListBox& books) {
    const std::string type(codeBeforeBlank(charges.text(row, 收费列表::票据类型)));
    const auto& own = app.session.登录部门编号;
    const Refill filling(books);
    addBooksOf(app, own, type, books);
    for (auto& sharing :
         Recordset(app.主连接, sql("Select 领用部门编号 From 票据共用设置 Where 共用部门编号='{}'", own)))
        addBooksOf(app, trimmed(sharing["领用部门编号"].text()), type, books);
}

void 填充空白票据(Application& app, std::string_view 入库单编号, ListBox& tickets) {
    const Refill filling(tickets);
    for (auto& ticket :
         Recordset(app.主连接, sql("Select 票据编号,ID  From 票据 Where 入库单编号='{}' and 开票日期 Is "
                                   "Null and 作废日期 Is Null Order By 票据编号",
                                   入库单编号)))
        tickets.addItem(ticket["票据编号"].text(), static_cast<long>(ticket["ID"].integer()));
}

void 票据消耗(Application& app, 收费列表& charges, int n, std::string_view 承租方) {
    using C = 收费列表;
    Money total;
    Recordset data(app.主连接, "Select * From 票据开票数据 Where ID=0", Rows::updatable);
    const int last = charges.rows() - n;
    for (int i = 1; i <= last; ++i) {
        charges.setCurrent(i, C::打印);
        if (!charges.waits(i)) continue;
        const auto at = static_cast<std::size_t>(i);
        data.addNew();
        data["票据编号"] = charges.text(i, C::票据编号);
        data["入库单编号"] = charges.text(i, C::票据簿编号);
        data["票据ID"] = charges.行票据ID[at];
        data["项目"] = charges.text(i, C::收费项目);
        data["收费项目代号"] = charges.行收费项目代号[at];
        data["数量"] = charges.text(i, C::数量);
        data["单价"] = charges.text(i, C::单价);
        data["金额"] = charges.text(i, C::金额);
        data["科目代号"] = charges.text(i, C::科目编号);
        data["非日常"] = 1;
        total += Money::of(val(charges.text(i, C::金额)));
        data.update();
    }
    const int used = last > 0 ? last : charges.lastRow();
    const auto now = isoStamp(app.platform.clock.now());
    const auto& who = app.session.登录姓名;
    app.主连接.execute(
        sql("Update 票据 Set 金额={} ,开票日期='{}',付款人='{}',收款日期='{}',开票人='{}',收款人='{}',"
            "开票部门编号='{}',收款方式='现金' Where 入库单编号='{}' AND 票据编号='{}'",
            numeral(total.text()), now, 承租方, now, who, who, app.session.登录部门编号,
            charges.text(used, C::票据簿编号), charges.text(used, C::票据编号)));
}

}  // namespace desk
