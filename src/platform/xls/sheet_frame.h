#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace desk::xls {

/// All of a sheet but its cells: page set-up, column widths, drawings, windows and their panes, code name. A
/// sheet that is written anew keeps it. The parts are records in the order of the file.
struct SheetFrame {
    struct Columns {
        int first;
        int last;
        std::string rest;  ///< of the record: width, look and flags
    };

    std::string head;              ///< up to the column widths
    std::vector<Columns> columns;  ///< from left to right
    std::string beforeCells;
    std::string behindCells;  ///< drawings, and the windows with their panes
    std::string tail;         ///< what stands behind the merged cells
};

/// Of a new sheet, in a workbook of so many windows; it is the one that they show, or stands behind.
enum class Shown { behind, first };
SheetFrame newFrame(std::size_t windows, Shown shown);

/// Of an old sheet, its records being whole.
SheetFrame frameOf(std::string_view sheet);

inline constexpr std::uint16_t sheetKind = 0x0010;
/// The record that begins a stream of that kind.
std::string startRecord(std::uint16_t kind);

}  // namespace desk::xls
