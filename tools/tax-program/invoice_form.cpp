#include "tax-program/invoice_form.h"

#include <QDate>
#include <QGridLayout>
#include <QPushButton>
#include <QShortcut>
#include <cstdlib>

#include "tax-program/box.h"

namespace desk::tax {

namespace {

constexpr int itemHeight = 24;  ///< pixels, which scripts reckon with

QLabel* caption(const QString& text) {
    auto* label = new QLabel(text);
    label->setProperty("caption", true);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

}  // namespace

InvoiceForm::LineFields::LineFields(int number)
    : code(QString("编号%1").arg(number)),
      price(QString("单价%1").arg(number)),
      quantity(QString("数量%1").arg(number)),
      amount(QString("金额%1").arg(number)) {
    item.setObjectName(QString("项目%1").arg(number));
    for (Field* field : {&price, &quantity, &amount}) field->setAlignment(Qt::AlignRight);
}

InvoiceForm::InvoiceForm(Device& device) : device_(device) {
    number.setReadOnly(true);
    figures.setObjectName("合计");
    words.setObjectName("大写");
    itemList.setObjectName("经营项目列表");
    for (const Item& item : items) {
        auto* row = new QListWidgetItem(QString("%1  %2").arg(item.code, item.name), &itemList);
        row->setSizeHint({0, itemHeight});
    }
    layOut();
    for (std::size_t place = 0; place < lines.size(); ++place) connectLine(place);
    connect(&itemList, &QListWidget::itemClicked, this, [this] { take(present_, itemList.currentRow()); });
    connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, this, [this] { nextSection(); });

    const auto fields = inOrder();
    for (std::size_t place = 0; place < fields.size(); ++place) {
        if (device_.options().dieAt == static_cast<int>(place) + 1)
            fields[place]->entered = [] { std::_Exit(1); };
    }
}

void InvoiceForm::layOut() {
    auto* form = new QGridLayout;
    form->setSpacing(8);
    form->addWidget(caption("发票号码"), 0, 0);
    form->addWidget(&number, 0, 1, 1, 2);
    form->addWidget(caption("开票日期"), 0, 3);
    form->addWidget(new QLabel(QDate::currentDate().toString("yyyy年M月d日")), 0, 4, 1, 2);
    form->addWidget(caption("付款单位（个人）"), 1, 0);
    form->addWidget(&payer, 1, 1, 1, 5);
    int column = 0;
    for (const char* text : {"行", "项目编号", "经营项目", "单价", "数量", "金额"})
        form->addWidget(caption(text), 2, column++);
    for (int i = 0; i < static_cast<int>(lines.size()); ++i) {
        LineFields& line = lines[static_cast<std::size_t>(i)];
        column = 0;
        for (QWidget* part :
             {static_cast<QWidget*>(caption(QString::number(i + 1))), static_cast<QWidget*>(&line.code),
              static_cast<QWidget*>(&line.item), static_cast<QWidget*>(&line.price),
              static_cast<QWidget*>(&line.quantity), static_cast<QWidget*>(&line.amount)})
            form->addWidget(part, 3 + i, column++);
    }
    form->addWidget(caption("合计金额（大写）"), 6, 0);
    form->addWidget(&words, 6, 1, 1, 3);
    form->addWidget(caption("（小写）"), 6, 4);
    form->addWidget(&figures, 6, 5);
    form->addWidget(caption("备注"), 7, 0);
    form->addWidget(&remark, 7, 1, 1, 5);
    form->setColumnMinimumWidth(0, 130);
    form->setColumnStretch(2, 3);
    for (const int wide : {1, 3, 4, 5}) form->setColumnStretch(wide, 2);
    form->setRowStretch(8, 1);

    auto* side = new QVBoxLayout;
    side->addWidget(caption("经营项目（按编号或位置选择）"));
    side->addWidget(&itemList);
    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(20, 16, 20, 16);
    all->setSpacing(20);
    all->addLayout(form, 3);
    all->addLayout(side, 1);
    itemList.setFocusPolicy(Qt::NoFocus);
}

void InvoiceForm::connectLine(std::size_t place) {
    LineFields& line = lines[place];
    line.code.entered = [this, place] {
        present_ = place;
        itemList.setCurrentRow(-1);
    };
    line.code.confirmed = [this, place] { confirmCode(place); };
    line.code.moved = [this](int by) {
        itemList.setCurrentRow(std::clamp(itemList.currentRow() + by, 0, itemList.count() - 1));
    };
    connect(&line.code, &QLineEdit::textChanged, this, [this, place] {
        const Line typed = content().lines[place];
        lines[place].item.setText(typed.item());
    });
    // A quantity that is left proposes the amount, which may be typed over.
    connect(&line.quantity, &QLineEdit::editingFinished, this, [this, place] {
        const Line typed = content().lines[place];
        if (typed.amount.isEmpty()) lines[place].amount.setText(typed.product().value_or(QString()));
    });
    connect(&line.amount, &QLineEdit::textChanged, this, [this] { followAmounts(); });
}

std::vector<Field*> InvoiceForm::inOrder() {
    std::vector<Field*> all{&number, &payer};
    for (LineFields& line : lines)
        for (Field* field : {&line.code, &line.price, &line.quantity, &line.amount}) all.push_back(field);
    all.push_back(&remark);
    return all;
}

void InvoiceForm::begin() {
    for (Field* field : inOrder()) field->clear();
    number.setText(device_.number());
    followAmounts();
    number.setFocus();
    number.selectAll();
}

Invoice InvoiceForm::content() const {
    Invoice invoice{number.text(), payer.text(), {}, remark.text()};
    for (std::size_t i = 0; i < lines.size(); ++i)
        invoice.lines[i] = {lines[i].code.text(), lines[i].price.text(), lines[i].quantity.text(),
                            lines[i].amount.text()};
    return invoice;
}

void InvoiceForm::confirmCode(std::size_t place) {
    LineFields& line = lines[place];
    if (line.code.text().isEmpty() && itemList.currentRow() >= 0) return take(place, itemList.currentRow());
    // An empty code says that no more lines follow.
    if (line.code.text().isEmpty()) return remark.setFocus();
    if (!line.item.text().isEmpty()) return line.price.setFocus();
    line.item.setText("无此项目");
    line.code.selectAll();
}

void InvoiceForm::take(std::size_t place, int item) {
    lines[place].code.setText(items[static_cast<std::size_t>(item)].code);
    lines[place].price.setFocus();
}

void InvoiceForm::nextSection() {
    for (std::size_t i = 0; i < lines.size(); ++i)
        for (const Field* field : {&lines[i].code, &lines[i].price, &lines[i].quantity, &lines[i].amount})
            if (field->hasFocus())
                return i + 1 < lines.size() ? lines[i + 1].code.setFocus() : remark.setFocus();
    lines[0].code.setFocus();
}

void InvoiceForm::followAmounts() {
    const qint64 total = content().total();
    figures.setText(inFigures(total));
    words.setText(inWords(total));
}

void InvoiceForm::print() {
    const Invoice invoice = content();
    if (const QString failure = device_.print(invoice); !failure.isEmpty()) return complain(this, failure);
    printed(invoice);
}

}  // namespace desk::tax
