#pragma once

#include <gtest/gtest.h>

#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>
#include <optional>

#include "desktop/program.h"
#include "money/tax_invoice.h"
#include "tour/patience.h"

namespace desk {

/// The cashier's counter of the sample: the whole program on a display of its own, and beside it the program
/// that prints invoices, which is started, found and typed into as on any desktop. Boxes are answered as was
/// told before, those that were not foreseen by Escape.
class Counter : public testing::Test {
  protected:
    Counter();
    ~Counter() override;

    /// How the program that prints is to behave from its next start on, as its variables say it.
    void tell(const char* variable, const char* value);
    /// The print screen, with one line to print, and the book that lies in the device.
    Frm税控发票打印& open(const char* payer, std::vector<开票内容::项> lines);
    Frm税控发票打印& open() {
        return open("盛远国际贸易有限公司", {{"租金", "YJ01", "50000.00", "1.00", "50000.00"}});
    }
    /// Presses 打印发票; comes back when the run has ended, with the texts of the boxes.
    QStringList print(Frm税控发票打印& screen, QStringList answers);

    bool isOpen() const { return program_->app.screens.loaded(Frm税控发票打印::screenName) != nullptr; }
    /// What the screen that takes deposits was handed back.
    std::string handedBack();
    /// What was printed: a line a field.
    QStringList journal() const;
    QStringList printedNumbers() const;
    /// The processes of the program that prints.
    std::vector<pid_t> devices() const;

    Application& app() { return program_->app; }
    X11Programs& programs() { return program_->programs; }

  private:
    void answerBox();

    QTemporaryDir folder_;
    std::optional<desktop::Program> program_;
    std::optional<tour::Patience> patience_;
    QTimer answering_;
    QTimer hurrying_;
    QStringList answers_;
    QStringList said_;
    std::vector<const char*> told_;
};

}  // namespace desk
