#pragma once

#include "platform/replaced_file.h"
#include "platform/spreadsheets.h"

namespace desk {

/// Workbooks in the format of Excel 97 to 2003 (BIFF8 in a compound file).
class XlsSpreadsheets : public Spreadsheets {
  public:
    explicit XlsSpreadsheets(SaveGate gate = {}) : gate_(std::move(gate)) {}
    void create(const std::string& path) override;
    void put(const std::string& path, const Worksheet& sheet) override;

  private:
    SaveGate gate_;
};

namespace xls {
/// The bytes of a workbook file with `sheet` in it. Fails as Spreadsheets::put() does.
std::string fileWithSheet(std::string_view file, const Worksheet& sheet);
}  // namespace xls

}  // namespace desk
