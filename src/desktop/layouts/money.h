#pragma once

#include <QWidget>

#include "money/deposits.h"
#include "money/receipt_printing.h"

namespace desk::desktop {

QWidget* layoutOfDeposits(Frm意向金收取& screen);
QWidget* layoutOfReceiptPrinting(Frm票据打印& screen);

}  // namespace desk::desktop
