#include "tax-program/take_back_form.h"

#include <QFormLayout>
#include <QPushButton>

#include "tax-program/box.h"

namespace desk::tax {

TakeBackForm::TakeBackForm(Device& device) : device_(device) {
    auto* button = new QPushButton("确认退票（回车）");
    button->setFocusPolicy(Qt::NoFocus);
    auto* fields = new QFormLayout(this);
    fields->setContentsMargins(160, 60, 160, 60);
    fields->setVerticalSpacing(14);
    fields->addRow("发票号码", &number);
    fields->addRow("退票原因", &reason);
    fields->addRow(QString(), button);
    number.confirmed = reason.confirmed = [this] { confirm(); };
    connect(button, &QPushButton::clicked, this, [this] { confirm(); });
}

void TakeBackForm::begin() {
    number.setText(device_.lastPrinted());
    reason.clear();
    number.setFocus();
    number.selectAll();
}

void TakeBackForm::confirm() {
    if (const QString failure = device_.takeBack(number.text(), reason.text()); !failure.isEmpty())
        return complain(this, failure);
    takenBack(number.text());
}

}  // namespace desk::tax
