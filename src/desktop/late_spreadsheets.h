#pragma once

#include <QString>

#include "platform/spreadsheets.h"

namespace desk::desktop {

/// The workbooks of a module that is loaded when the first one is written: what reading and writing them
/// takes with it would cost every start of the program a quarter of its time.
class LateSpreadsheets : public Spreadsheets {
  public:
    /// The module that lies beside the program.
    LateSpreadsheets();
    /// The module's file, with or without the system's own beginning and ending of such names.
    explicit LateSpreadsheets(QString module) : module_(std::move(module)) {}

    /// Both fail with 53 when the module cannot be loaded, and then as the module does.
    void create(const std::string& path) override { loaded().create(path); }
    void put(const std::string& path, const Worksheet& sheet) override { loaded().put(path, sheet); }

  private:
    Spreadsheets& loaded();

    QString module_;
    Spreadsheets* loaded_ = nullptr;  ///< the module's own
};

}  // namespace desk::desktop
