#include "analysis/excel_export.h"

#include <gtest/gtest.h>

#include "session/main_window.h"
#include "support/test_program.h"

namespace desk {
namespace {

struct Source : Screen {
    Source() : Screen("source", "", WindowKind::child, 9000, 9000) { grid.addRow({"甲", "键", "5"}); }
    Grid grid{*this, "grid", "<名称||>数量"};
};

/// The export of a small table, without the analysis that it comes from.
class ExcelExport : public testing::Test {
  protected:
    ExcelExport() {
        program.openDatabase();
        program.enter();
        program.app.screens.offer(FrmToExcel::screenName,
                                  [this] { return std::make_unique<FrmToExcel>(program.app); });
        form().Config(source.grid, "表", "题");
        form().文件.setText("/data/a.xls");
    }
    FrmToExcel& form() { return program.app.screens.get<FrmToExcel>(); }
    bool isOpen() const { return program.app.screens.loaded(FrmToExcel::screenName) != nullptr; }

    Source source;
    TestProgram program;
};

TEST_F(ExcelExport, AClickChoosesAColumnAndADoubleClickGivesItUp) {
    Grid& chooser = form().Grid1;
    chooser.doubleClick(1, 0);
    EXPECT_EQ(chooser.text(1, 0), "");
    chooser.setAlignment(0, Align::left);
    chooser.click(0, 0);
    EXPECT_EQ(chooser.text(1, 0), "√");
    EXPECT_EQ(chooser.alignment(0), Align::centre);
    // What has no header is the program's own.
    EXPECT_EQ(chooser.columnWidth(1), 0);
    chooser.click(1, 1);
    EXPECT_EQ(chooser.text(1, 1), "");
    chooser.doubleClick(1, 2);
    form().Command2.click();
    EXPECT_EQ(program.spreadsheets.books.at("/data/a.xls").front().rows()[4].size(), 1U);
}

TEST_F(ExcelExport, ColumnsHaveNamesUpToTheHundredAndFiftySixth) {
    const std::pair<int, const char*> names[] = {{0, "A1"},    {25, "Z1"}, {26, "AA1"},
                                                 {155, "EZ1"}, {156, ""},  {-1, ""}};
    for (const auto& [column, name] : names) EXPECT_EQ(FrmToExcel::RangeNom(column, 1), name) << column;
    source.grid.setColumns(157);
    for (int column = 0; column < 157; ++column) source.grid.setText(0, column, "列");
    form().Config(source.grid, "表", "题");
    form().Command2.click();
    EXPECT_EQ(program.desktop.takeMessage(), "输出到Execl失败: 最多可以输出 156 列");
    EXPECT_EQ(program.desktop.busyDepth, 0);
    bool done = true;
    form().To_Execl(source.grid, "", "", done);
    EXPECT_FALSE(done);
}

}  // namespace
}  // namespace desk
