#include "desktop/layouts/tax_invoice.h"

#include <QLabel>

#include "desktop/layout.h"
#include "desktop/layouts/facsimile.h"
#include "desktop/panel.h"

namespace desk::desktop {

namespace {

using namespace layout;

/// Hard to miss, and the form keeps its place when it comes.
QWidget* warningOf(Label& warning) {
    auto* shown = qobject_cast<QLabel*>(plain(warning));
    shown->setAlignment(Qt::AlignCenter);
    QFont font = shown->font();
    font.setPointSizeF(font.pointSizeF() * 1.35);
    font.setBold(true);
    shown->setFont(font);
    QPalette colours = shown->palette();
    colours.setColor(QPalette::WindowText, QColor(196, 30, 30));
    shown->setPalette(colours);
    QSizePolicy policy = shown->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    shown->setSizePolicy(policy);
    return shown;
}

QWidget* recoveryOf(未正常打印& recovery) {
    auto& reasons = recovery.选项;
    auto* why = rows({plain(recovery.问原因), plain(reasons[0]), plain(reasons[1]), plain(reasons[2]),
                      plain(reasons[3]), new QWidget},
                     {0, 0, 0, 0, 0, 1});
    auto* what = rows({plain(recovery.问操作), plain(recovery.重新打印), plain(recovery.退票),
                       plain(recovery.取消收款), new QWidget},
                      {0, 0, 0, 0, 1});
    auto* part = rows({columns({why, what}, {1, 1}), buttons({&recovery.确定})}, {1, 0});
    part->setContentsMargins(12, 6, 12, 6);
    return part;
}

}  // namespace

QWidget* layoutOfTaxInvoice(Frm税控发票打印& screen) {
    auto* whole =
        rows({sheetOf(screen.样张, warningOf(screen.出现错误)), buttons({&screen.打印发票, &screen.关闭})},
             {1, 0});
    whole->setContentsMargins(8, 8, 8, 8);
    panelOver(whole, screen.恢复.面板, recoveryOf(screen.恢复));
    return whole;
}

}  // namespace desk::desktop
