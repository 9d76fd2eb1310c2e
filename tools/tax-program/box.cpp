#include "tax-program/box.h"

#include <QMessageBox>

namespace desk::tax {

void complain(QWidget* parent, const QString& text) {
    auto* box = new QMessageBox(QMessageBox::Critical, "税控器错误", text, QMessageBox::NoButton, parent);
    box->addButton("确定", QMessageBox::AcceptRole);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

}  // namespace desk::tax
