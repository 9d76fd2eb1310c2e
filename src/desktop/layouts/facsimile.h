#pragma once

#include <QWidget>

#include "money/facsimile.h"

namespace desk::desktop {

/// The form as it comes out of the printer, on its paper, as wide as it is printed and in the middle of a
/// wider window. `remark` stands beside the choice of the book, null for none.
QWidget* sheetOf(发票样张& form, QWidget* remark = nullptr);

}  // namespace desk::desktop
