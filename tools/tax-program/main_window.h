#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QStackedWidget>

#include "tax-program/invoice_form.h"
#include "tax-program/take_back_form.h"

namespace desk::tax {

/// The program once somebody has logged in: F2 begins an invoice and F9 prints it, F5 takes one back, F8 puts
/// in another roll.
class MainWindow : public QMainWindow {
  public:
    explicit MainWindow(Device& device);

  private:
    // The pages below go before what holds them.
    QStackedWidget pages_;
    QWidget restPage_;

  public:
    InvoiceForm invoice;
    TakeBackForm takeBack;
    QLabel news;  ///< what came of the last invoice

  private:
    void addActions();
    void loadRoll();
    void show(QWidget& page);
    void rest(const QString& text);

    Device& device_;
    QLabel next_;
};

}  // namespace desk::tax
