#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/spreadsheets.h"

namespace desk::xls {

/// The stream of a workbook with one empty sheet.
std::string emptyWorkbook();

/// The stream of `workbook` with `sheet` behind its sheets, or its cells in that of the same name; the parts
/// follow one another. Other sheets keep every byte but the stream positions that they name. Fails with 1004
/// where Spreadsheets::put() does.
std::vector<std::string> withSheet(std::string_view workbook, const Worksheet& sheet);

}  // namespace desk::xls
