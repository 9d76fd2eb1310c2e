#include "ui/sheet_text.h"

namespace desk {

std::string sheetCell(std::string_view text) {
    if (text.find_first_of("\t\r\n\"") == std::string_view::npos) return std::string(text);
    std::string quoted = "\"";
    for (const char each : text) {
        // Inside a cell a spreadsheet ends lines with the line feed alone.
        if (each == '\r') continue;
        if (each == '"') quoted += '"';
        quoted += each;
    }
    return quoted + '"';
}

std::string sheetRows(const Grid& grid, int first, int end) {
    std::string lines;
    for (int row = first; row < end; ++row) {
        if (row > first) lines += '\n';
        bool isFirst = true;
        for (int column = 0; column < grid.columns(); ++column) {
            if (grid.columnWidth(column) == 0) continue;
            if (!isFirst) lines += '\t';
            isFirst = false;
            lines += sheetCell(grid.text(row, column));
        }
    }
    return lines;
}

}  // namespace desk
