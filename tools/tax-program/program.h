#pragma once

#include <memory>

#include "tax-program/login_window.h"
#include "tax-program/main_window.h"

namespace desk::tax {

/// The whole program: the log-in, then the main window.
class Program {
  public:
    explicit Program(Options options) : device(std::move(options)) {}

    /// Shows the log-in, later where the program is told to be slow.
    void start();

    Device device;
    std::unique_ptr<LoginWindow> login;
    std::unique_ptr<MainWindow> main;
};

}  // namespace desk::tax
