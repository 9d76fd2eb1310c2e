#pragma once

#include <QLabel>
#include <QListWidget>
#include <QWidget>
#include <array>

#include "tax-program/device.h"
#include "tax-program/field.h"

namespace desk::tax {

/// One invoice: the number, the payer, three lines of code, unit price, quantity and amount, the remark. Tab
/// goes through the fields in this order, F6 to the next section, that is from the payer to the first line,
/// from line to line, and to the remark. The code is confirmed by Enter, which goes on to the unit price.
class InvoiceForm : public QWidget {
  public:
    explicit InvoiceForm(Device& device);

    std::function<void(const Invoice&)> printed;

    /// An empty form with the next number, which has the focus and is selected.
    void begin();
    void print();

    struct LineFields {
        explicit LineFields(int number);
        Field code;
        QLabel item;
        Field price;
        Field quantity;
        Field amount;
    };

    Field number{"发票号码"};
    Field payer{"付款单位"};
    std::array<LineFields, 3> lines{LineFields(1), LineFields(2), LineFields(3)};
    Field remark{"备注"};
    QLabel figures;
    QLabel words;
    QListWidget itemList;

  private:
    void layOut();
    void connectLine(std::size_t place);
    std::vector<Field*> inOrder();
    Invoice content() const;
    void confirmCode(std::size_t place);
    void take(std::size_t place, int item);
    void nextSection();
    void followAmounts();

    Device& device_;
    std::size_t present_ = 0;  ///< the line that the item list serves
};

}  // namespace desk::tax
