#pragma once

#include <QLabel>
#include <QWidget>

#include "tax-program/field.h"
#include "tax-program/options.h"

namespace desk::tax {

/// Who works with the device says so first.
class LoginWindow : public QWidget {
  public:
    explicit LoginWindow(const Options& options);

    std::function<void()> loggedIn;

    Field user{"用户名"};
    Field password{"密码"};
    QLabel message;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void logIn();

    const Options& options_;
};

}  // namespace desk::tax
