#include "platform/xls/xls_spreadsheets.h"

/// Writes two states of a sheet into the workbook named by the first argument, in turn and without end, or as
/// many times as the second says.
int main(int count, char** arguments) {
    const long times = count > 2 ? std::stol(arguments[2]) : -1;
    desk::XlsSpreadsheets spreadsheets;
    for (long turn = 0; turn != times; ++turn) {
        desk::Worksheet sheet("报表");
        for (int row = 0; row < 2000; ++row)
            sheet.at(row, 0).text = (turn % 2 == 0 ? "甲" : "乙") + std::to_string(row);
        spreadsheets.put(arguments[1], sheet);
    }
}
