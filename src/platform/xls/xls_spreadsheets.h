#pragma once

#include "platform/spreadsheets.h"

namespace desk {

/// Workbooks in the format of Excel 97 to 2003 (BIFF8 in a compound file).
class XlsSpreadsheets : public Spreadsheets {
  public:
    void create(const std::string& path) override;
    void put(const std::string& path, const Worksheet& sheet) override;
};

namespace xls {
/// The bytes of a workbook file with `sheet` in it. Fails as Spreadsheets::put() does.
std::string fileWithSheet(std::string_view file, const Worksheet& sheet);
}  // namespace xls

}  // namespace desk
