#include <fstream>

#include "analysis/export_sheet.h"
#include "base/text.h"
#include "platform/xls/xls_spreadsheets.h"
#include "ui/batch.h"
#include "ui/screen.h"

namespace {

struct Form : desk::Screen {
    Form() : Screen("form", "", desk::WindowKind::child, 1000, 1000) {}
};

}  // namespace

/// Reads a table of fields between commas and exports it as the program does; arguments: table, workbook.
int main(int, char** arguments) {
    using namespace desk;
    Form form;
    Grid grid(form, "grid", "<序|<编号|<公司|<姓名|<电话|<地址|<区域|<媒体|<行业|>面积|>租金|<日期");
    {
        const Batch fill(grid);
        std::ifstream table(arguments[1]);
        for (std::string line; std::getline(table, line);) {
            // As screens do: a row that takes no more room than its cells.
            auto cells = split(line, ',');
            cells.shrink_to_fit();
            grid.addRow(std::move(cells));
        }
    }
    std::vector<int> columns;
    for (int column = 0; column < grid.columns(); ++column) columns.push_back(column);
    XlsSpreadsheets spreadsheets;
    spreadsheets.create(arguments[2]);
    spreadsheets.put(arguments[2],
                     exportSheet(grid, columns, "报表", {"报表", "统计时段", "打印日期"}, [](int) {}));
}
