#include "desktop/layouts/money.h"

#include <QLineEdit>
#include <QTableView>

#include "desktop/cell_place.h"
#include "desktop/convert.h"
#include "desktop/floating.h"
#include "desktop/layout.h"
#include "desktop/layouts/facsimile.h"
#include "desktop/layouts/letter_fields.h"
#include "desktop/panel.h"
#include "desktop/tree_count.h"

namespace desk::desktop {

using namespace layout;

namespace {

/// A column of a voucher: its title stands above it.
QWidget* titled(std::string_view title, Control& field) {
    return rows({caption(title), plain(field, title)});
}

QWidget* voucherOf(退款凭证& voucher) {
    auto* kind = row({&voucher.预算, &voucher.非预算});
    auto* head = fields({{"报销类型", kind},
                         {"", voucher.付款方式},
                         {"退款日期", voucher.退款日期},
                         {"凭证编号", voucher.凭证编号}},
                        4);
    auto* line = columns({titled("摘要", voucher.摘要), titled("科目代号", voucher.科目代号),
                          titled("科目名称", voucher.科目名称), titled("借方金额", voucher.借方金额)},
                         {4, 2, 4, 2});
    if (auto* amount = line->findChild<QLineEdit*>(text(voucher.借方金额.name())))
        amount->setAlignment(Qt::AlignRight);
    QWidget* why = plain(voucher.相关情况说明);
    // So high that the whole covers the buttons below the grid, not the half of them.
    why->setFixedHeight(pixels(1260));
    auto* signedBy = columns({fields({{"收款人", voucher.收款人}}), plain(voucher.制单人),
                              buttons({&voucher.确定, &voucher.关闭})},
                             {2, 1, 1});
    return atLeast(rows({head, line, fields({{"相关情况说明", why}}), signedBy}, {0, 0, 1, 0}), 13500, 0);
}

/// The charge lines, and the room beside them for what can be done with one.
QWidget* chargesOf(Frm意向金收取& screen) {
    QWidget* grid = plain(screen.收费, "收费");
    auto* view = qobject_cast<QTableView*>(grid);
    layInCell(view, screen.单元格编辑, plain(screen.单元格编辑, "单元格编辑"), InCell::all);
    for (CellList* list : {&screen.收费项目, &screen.票据类型, &screen.票据簿, &screen.票据})
        layInCell(view, list->button, plain(list->button), InCell::rightEdge);
    auto* margin = new QWidget;
    margin->setFixedWidth(pixels(1350));
    return columns({grid, margin}, {1, 0});
}

}  // namespace

QWidget* layoutOfDeposits(Frm意向金收取& screen) {
    auto* left =
        rows({fields({{"管理项目", screen.管理项目}}), counted(screen.意向书, "意向书", Entries::belowTop)},
             {0, 1});
    auto* letter = rows({letterLines(screen.意向书信息), letterTexts(screen.意向书信息)}, {0, 1});
    auto* right = rows({group("意向书信息", letter), group("收费", chargesOf(screen)),
                        buttons({&screen.票据打印保存, &screen.退出})},
                       {1, 2, 0});
    auto* area = columns({left, right}, {2, 8});
    auto* whole = rows({area, plain(screen.状态栏)}, {1, 0});
    whole->setContentsMargins(6, 6, 6, 4);
    for (CellList* list : {&screen.收费项目, &screen.票据类型, &screen.票据簿, &screen.票据})
        panelOver(whole, list->panel, plain(list->list, "请选择"));
    auto* beside = framed(screen.行操作, plain(screen.退款处理));
    floatOver(whole, screen.行操作, beside, FloatsAt::beside);
    // Without its button nothing of it is to be seen.
    beside->setAutoFillBackground(false);
    panelOver(whole, screen.退款.面板, voucherOf(screen.退款));
    return whole;
}

QWidget* layoutOfReceiptPrinting(Frm票据打印& screen) {
    auto* whole = rows(
        {sheetOf(screen.样张, plain(screen.首项名称)), buttons({&screen.打印发票, &screen.关闭})}, {1, 0});
    whole->setContentsMargins(8, 8, 8, 8);
    return whole;
}

}  // namespace desk::desktop
