#pragma once

#include <QWidget>

#include "tax-program/device.h"
#include "tax-program/field.h"

namespace desk::tax {

/// Takes an invoice back: by default the last one. Enter does it.
class TakeBackForm : public QWidget {
  public:
    explicit TakeBackForm(Device& device);

    std::function<void(const QString& number)> takenBack;

    /// Proposes the last invoice; its number has the focus and is selected.
    void begin();

    Field number{"退票号码"};
    Field reason{"退票原因"};

  private:
    void confirm();

    Device& device_;
};

}  // namespace desk::tax
