#pragma once

#include <QWidget>

#include "money/tax_invoice.h"

namespace desk::desktop {

QWidget* layoutOfTaxInvoice(Frm税控发票打印& screen);

}  // namespace desk::desktop
