#include "analysis/export_sheet.h"

#include <algorithm>

#include "analysis/excel_export.h"
#include "base/failure.h"

namespace desk {

namespace {

constexpr int titleRows = 3;
constexpr double bodyFont = 10.5;

CellLook titleLook(CellLook::Across across, double fontSize) {
    CellLook look;
    look.across = across;
    look.down = CellLook::Down::distributed;
    look.fontSize = fontSize;
    return look;
}

void writeTitles(Worksheet& sheet, int columns, const ExportTitles& titles) {
    const struct {
        const std::string& text;
        CellLook look;
    } lines[titleRows] = {{titles.title, titleLook(CellLook::Across::centre, 18)},
                          {titles.subtitle, titleLook(CellLook::Across::centre, 12)},
                          {titles.printed, titleLook(CellLook::Across::right, 10)}};
    for (int row = 0; row < titleRows; ++row) {
        sheet.setRowLook(row, lines[row].look);
        for (int column = 0; column < columns; ++column) sheet.at(row, column).look = lines[row].look;
        sheet.at(row, 0) = {lines[row].text, lines[row].look};
    }
    sheet.setRowLook(titleRows, titleLook(CellLook::Across::centre, 0));
}

/// Right-aligned columns hold numbers.
CellLook bodyLook(const Grid& grid, int column) {
    constexpr int firstNumberAlignment = 6;
    CellLook look;
    look.format = static_cast<int>(grid.alignment(column)) < firstNumberAlignment ? CellLook::Format::text
                                                                                  : CellLook::Format::number;
    look.bordered = true;
    look.fontSize = bodyFont;
    return look;
}

void checkNames(std::size_t columns) {
    for (std::size_t k = 0; k < columns; ++k)
        if (FrmToExcel::RangeNom(static_cast<int>(k), 1).empty())
            throw RuntimeFailure(failure::spreadsheet, "最多可以输出 156 列");
}

/// Header rows are changed before they are written, so they are copied.
int headerRows(const Grid& grid) {
    return std::min(grid.rows(), grid.fixedRows() == 2 ? 2 : 1);
}

void writeHeaders(Worksheet& sheet, const Grid& grid, const std::vector<int>& columns) {
    for (int row = 0; row < headerRows(grid); ++row)
        for (std::size_t k = 0; k < columns.size(); ++k) {
            auto& cell = sheet.at(row + titleRows, static_cast<int>(k));
            cell = {grid.text(row, columns[k]), bodyLook(grid, columns[k])};
            if (row > 0) continue;
            cell.look.across = CellLook::Across::centre;
            cell.look.down = CellLook::Down::distributed;
        }
}

/// All other rows are read from the grid when the sheet is written.
Worksheet::Table tableBelow(const Grid& grid, const std::vector<int>& columns,
                            const std::function<void(int)>& progress) {
    constexpr int rowsBetweenReports = 500;
    const int headers = headerRows(grid);
    Worksheet::Table table;
    table.rows = grid.rows() - headers;
    for (const int column : columns) table.columns.push_back(bodyLook(grid, column));
    table.text = [&grid, columns, headers](int row, int k) -> std::string_view {
        return grid.text(row + headers, columns[static_cast<std::size_t>(k)]);
    };
    table.reached = [progress](int row) {
        if (row % rowsBetweenReports == 0) progress(row);
    };
    return table;
}

/// Equal headers beside each other become one, and a header that says the same twice takes both rows. The
/// second is asked at the last column of the first, whose text has gone by then.
void mergeHeaders(Worksheet& sheet, int columns) {
    constexpr int upper = titleRows;
    constexpr int lower = titleRows + 1;
    for (int i = 0; i < columns; ++i) {
        int end = i;
        while (end + 1 < columns && sheet.at(upper, end + 1).text == sheet.at(upper, i).text) ++end;
        if (end > i) {
            for (int column = end; column > i; --column) sheet.at(upper, column).text.clear();
            sheet.merge({upper, i, upper, end});
            i = end;
        }
        if (sheet.at(upper, i).text == sheet.at(lower, i).text) {
            sheet.at(lower, i).text.clear();
            sheet.merge({upper, i, lower, i});
        }
    }
}

}  // namespace

Worksheet exportSheet(const Grid& grid, const std::vector<int>& columns, const std::string& name,
                      const ExportTitles& titles, const std::function<void(int rowsDone)>& progress) {
    constexpr double twipsPerCharacter = 100;
    const int count = static_cast<int>(columns.size());
    Worksheet sheet(name);
    writeTitles(sheet, count, titles);
    for (int k = 0; k < count; ++k)
        sheet.setColumnWidth(k, grid.columnWidth(columns[static_cast<std::size_t>(k)]) / twipsPerCharacter);
    checkNames(columns.size());
    writeHeaders(sheet, grid, columns);
    sheet.append(tableBelow(grid, columns, progress));
    for (int row = 0; row < titleRows; ++row) sheet.merge({row, 0, row, count - 1});
    if (grid.fixedRows() == 2) mergeHeaders(sheet, count);
    return sheet;
}

}  // namespace desk
