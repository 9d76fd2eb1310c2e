#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/spreadsheets.h"
#include "platform/xls/looks.h"
#include "platform/xls/shared_strings.h"
#include "platform/xls/sheet_frame.h"

namespace desk::xls {

/// The records of `sheet` inside `frame`, its texts and looks being added to those of the workbook.
std::string sheetStream(const Worksheet& sheet, const SheetFrame& frame, Looks& looks, SharedStrings& texts);

/// What is to be known of an old sheet before another one is written.
struct SheetSurvey {
    std::size_t end = 0;           ///< in the stream
    std::uint32_t textCells = 0;   ///< that name a shared text
    std::uint32_t textsNamed = 0;  ///< one more than the highest number that they name
};
/// Fails with 1004 if no sheet begins at `start`, or it does not end.
SheetSurvey surveySheet(std::string_view stream, std::size_t start);

/// Tells an old sheet that it, and what it names, now lies `shift` bytes further on in the stream.
void moveSheet(std::string& sheet, std::size_t oldStart, std::ptrdiff_t shift);

}  // namespace desk::xls
