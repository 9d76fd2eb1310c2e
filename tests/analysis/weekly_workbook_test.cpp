#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>

#include "analysis/weekly_program.h"
#include "base/number.h"
#include "xls/fixture.h"

namespace desk {
namespace {

using Lines = std::vector<std::string>;

/// The export as it is written to a file, and as another program reads it.
template <class S>
class WeeklyWorkbook : public WorkbookTest {
  protected:
    void writtenAndReadBack() {
        auto& screen = program.app.screens.get<S>();
        program.spreadsheets.real = &spreadsheets;
        const auto file = path("周报.xls");
        screen.选择区域.pick("01 东塔");
        screen.开始日期.pick(DateTime(2011, 3, 1));
        screen.结束日期.pick(DateTime(2011, 3, 3));
        screen.全部.click();
        screen.统计.click();
        program.desktop.modalPerson = [&](Screen& shown) {
            auto& form = static_cast<FrmToExcel&>(shown);
            form.文件.type(file);
            form.Command2.click();
        };
        screen.输出.click();
        EXPECT_TRUE(program.desktop.messages.empty());
        compare(screen.统计结果, readBack(file));
    }

    static void compare(const Grid& grid, const Lines& read) {
        EXPECT_EQ(WorkbookTest::linesOf(read, "sheet").back(),
                  fmt::format("每周来客统计分析|{}x4|visible=True", grid.rows() + 3));
        EXPECT_EQ(WorkbookTest::linesOf(read, "merge"), (Lines{"0,0:0,3", "1,0:1,3", "2,0:2,3"}));
        Lines widths;
        for (int column = 0; column < 4; ++column)
            widths.push_back(fmt::format("{}|{}", column, widthUnits(grid.columnWidth(column) / 100.0)));
        EXPECT_EQ(WorkbookTest::linesOf(read, "width"), widths);
        const Lines cells = WorkbookTest::linesOf(read, "cell");
        std::size_t at = 0;
        for (const char* title : {"0,0|text|每周来客统计分析|General|2,4|0|360",
                                  "1,0|text|统计时段：2011年03月01日至2011年03月03日|General|2,4|0|240",
                                  "2,0|text|打印日期：2011年03月05日|General|3,4|0|200"}) {
            EXPECT_EQ(cells.at(at++), title);
            while (at < cells.size() && cells[at].find("|blank|") != std::string::npos) ++at;
        }
        for (int row = 0; row < grid.rows(); ++row)
            for (int column = 0; column < 4; ++column)
                EXPECT_EQ(cells.at(at++), cellOf(grid, row, column)) << row << "," << column;
        EXPECT_EQ(at, cells.size());
    }

    /// In 256ths of a character, with the room beside it.
    static int widthUnits(double characters) { return static_cast<int>(characters * 256 + 0.5) + 160; }

    static std::string cellOf(const Grid& grid, int row, int column) {
        const auto& text = grid.text(row, column);
        const auto number = wholeNumber(text);
        const std::string value = !number                      ? text
                                  : std::fmod(*number, 1) == 0 ? fmt::format("{:.1f}", *number)
                                                               : fmt::format("{}", *number);
        return fmt::format("{},{}|{}|{}|0.00_ |{}|1|210", row + 3, column,
                           text.empty() ? "blank"
                           : number     ? "number"
                                        : "text",
                           value, row == 0 ? "2,4" : "0,2");
    }

    WeeklyProgram program;
};

using WeeklyWorkbookOfVisits = WeeklyWorkbook<Frm每周来客统计分析>;
using WeeklyWorkbookOfCalls = WeeklyWorkbook<Frm每周来电统计分析>;

TEST_F(WeeklyWorkbookOfVisits, HoldsTheTableCellByCell) {
    writtenAndReadBack();
}

TEST_F(WeeklyWorkbookOfCalls, HoldsTheTableUnderTheTitleOfTheVisits) {
    writtenAndReadBack();
}

}  // namespace
}  // namespace desk
