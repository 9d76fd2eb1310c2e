#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/spreadsheets.h"
#include "platform/xls/looks.h"
#include "platform/xls/shared_strings.h"

namespace desk::xls {

/// Whether a new sheet is the one that the workbook opens with.
enum class Shown { behind, first };

/// The records of a sheet of its own, its texts and looks being added to those of the workbook.
std::string sheetStream(const Worksheet& sheet, Looks& looks, SharedStrings& texts, Shown shown);

/// The end of the sheet that begins at `start`. Fails with 1004 if none begins there, or it does not end.
std::size_t sheetEnd(std::string_view stream, std::size_t start);

/// How many cells with shared texts stand in the records.
std::uint32_t textCells(std::string_view sheet);

/// Tells an old sheet that it, and what it names, now lies `shift` bytes further on in the stream.
void moveSheet(std::string& sheet, std::size_t oldStart, std::ptrdiff_t shift);

/// The record that begins a stream of that kind.
std::string startRecord(std::uint16_t kind);

}  // namespace desk::xls
