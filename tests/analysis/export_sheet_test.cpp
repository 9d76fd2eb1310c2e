#include "analysis/export_sheet.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/test_program.h"

namespace desk {
namespace {

struct Form : Screen {
    Form() : Screen("form", "", WindowKind::child, 9000, 9000) {}
};

/// What a table becomes, in words.
class ExportSheet : public testing::Test {
  protected:
    Worksheet exported(const std::vector<int>& columns) {
        const ExportTitles titles{"周报", "统计时段", "打印日期"};
        MemorySpreadsheets books;
        books.put("book",
                  exportSheet(grid, columns, "表", titles, [this](int rows) { reports.push_back(rows); }));
        return books.books.at("book").front();
    }
    void fill(std::initializer_list<std::vector<std::string>> rows) {
        for (const auto& row : rows) grid.addRow(row);
    }
    /// Two header rows, the upper and the lower texts given.
    void setHeaders(const std::vector<std::string>& upper, const std::vector<std::string>& lower) {
        grid.setColumns(static_cast<int>(upper.size()));
        grid.setRows(2);
        grid.setFixedRows(2);
        for (int column = 0; column < grid.columns(); ++column) {
            grid.setText(0, column, upper[static_cast<std::size_t>(column)]);
            grid.setText(1, column, lower[static_cast<std::size_t>(column)]);
        }
    }
    static std::string lookOf(const CellLook& look) {
        static constexpr const char* formats[] = {"general", "text", "number"};
        static constexpr const char* across[] = {"general", "left", "centre", "right"};
        static constexpr const char* down[] = {"bottom", "top", "centre", "distributed"};
        return fmt::format("{} {} {}{} {}", formats[static_cast<int>(look.format)],
                           across[static_cast<int>(look.across)], down[static_cast<int>(look.down)],
                           look.bordered ? " bordered" : "", look.fontSize);
    }
    static std::vector<std::string> rowOf(const Worksheet& sheet, std::size_t row) {
        std::vector<std::string> cells;
        for (const auto& cell : sheet.rows().at(row)) cells.push_back(cell.text + ": " + lookOf(cell.look));
        return cells;
    }
    static std::vector<std::string> textsOf(const Worksheet& sheet, std::size_t row) {
        std::vector<std::string> texts;
        for (const auto& cell : sheet.rows().at(row)) texts.push_back(cell.text);
        return texts;
    }
    static std::vector<std::string> mergesOf(const Worksheet& sheet) {
        std::vector<std::string> merges;
        for (const auto& range : sheet.merges())
            merges.push_back(fmt::format("{},{}:{},{}", range.top, range.left, range.bottom, range.right));
        return merges;
    }
    /// Those of the header rows, behind the three of the titles.
    static std::vector<std::string> headerMergesOf(const Worksheet& sheet) {
        auto merges = mergesOf(sheet);
        merges.erase(merges.begin(), merges.begin() + 3);
        return merges;
    }

    Form form;
    Grid grid{form, "grid", "<名称|^日期|>数量|备注"};
    std::vector<int> reports;
};

using Strings = std::vector<std::string>;

TEST_F(ExportSheet, TitlesHeaderAndRowsHaveTheirLooks) {
    fill({{"甲", "2011-3-5", "5", "7"}, {"", "", "", ""}});
    const Worksheet sheet = exported({0, 1, 2, 3});
    EXPECT_EQ(sheet.name(), "表");
    ASSERT_EQ(sheet.rows().size(), 6U);
    const std::string title = "general centre distributed 18";
    const std::string subtitle = "general centre distributed 12";
    const std::string printed = "general right distributed 10";
    EXPECT_EQ(rowOf(sheet, 0), (Strings{"周报: " + title, ": " + title, ": " + title, ": " + title}));
    EXPECT_EQ(rowOf(sheet, 1),
              (Strings{"统计时段: " + subtitle, ": " + subtitle, ": " + subtitle, ": " + subtitle}));
    EXPECT_EQ(rowOf(sheet, 2),
              (Strings{"打印日期: " + printed, ": " + printed, ": " + printed, ": " + printed}));
    EXPECT_EQ(rowOf(sheet, 3), (Strings{"名称: text centre distributed bordered 10.5",
                                        "日期: text centre distributed bordered 10.5",
                                        "数量: number centre distributed bordered 10.5",
                                        "备注: number centre distributed bordered 10.5"}));
    EXPECT_EQ(rowOf(sheet, 4),
              (Strings{"甲: text general bottom bordered 10.5", "2011-3-5: text general bottom bordered 10.5",
                       "5: number general bottom bordered 10.5", "7: number general bottom bordered 10.5"}));
    EXPECT_EQ(rowOf(sheet, 5),
              (Strings{": text general bottom bordered 10.5", ": text general bottom bordered 10.5",
                       ": number general bottom bordered 10.5", ": number general bottom bordered 10.5"}));
    Strings rows;
    for (const auto& [row, look] : sheet.rowLooks()) rows.push_back(fmt::format("{}: {}", row, lookOf(look)));
    EXPECT_EQ(rows,
              (Strings{"0: " + title, "1: " + subtitle, "2: " + printed, "3: general centre distributed 0"}));
    EXPECT_EQ(mergesOf(sheet), (Strings{"0,0:0,3", "1,0:1,3", "2,0:2,3"}));
}

TEST_F(ExportSheet, ChosenColumnsMoveTogetherWithTheirWidths) {
    fill({{"甲", "2011-3-5", "5", "7"}});
    grid.setColumnWidth(1, 1250);
    grid.setColumnWidth(3, 90);
    const Worksheet sheet = exported({1, 3});
    EXPECT_EQ(textsOf(sheet, 3), (Strings{"日期", "备注"}));
    EXPECT_EQ(textsOf(sheet, 4), (Strings{"2011-3-5", "7"}));
    EXPECT_EQ(sheet.columnWidths(), (std::map<int, double>{{0, 12.5}, {1, 0.9}}));
    EXPECT_EQ(mergesOf(sheet), (Strings{"0,0:0,1", "1,0:1,1", "2,0:2,1"}));
}

TEST_F(ExportSheet, EveryRowIsWrittenAndTheProgressIsTold) {
    constexpr int count = 1201;
    for (int row = 0; row < count; ++row) grid.addRow({std::to_string(row)});
    const Worksheet sheet = exported({0});
    ASSERT_EQ(sheet.rows().size(), 4U + count);
    EXPECT_EQ(sheet.rows().back()[0].text, "1200");
    EXPECT_EQ(reports, (std::vector<int>{0, 500, 1000}));
    // A grid without a single row leaves the titles.
    grid.setRows(0);
    EXPECT_EQ(exported({0}).rows().size(), 3U);
}

TEST_F(ExportSheet, EqualHeadersBecomeOneFromTheFirstOfThemToTheLast) {
    setHeaders({"来电", "来电", "来人", "来人", "来人"}, {"报纸", "网络", "男", "女", "其它"});
    fill({{"1", "2", "3", "4", "5"}});
    const Worksheet sheet = exported({0, 1, 2, 3, 4});
    EXPECT_EQ(headerMergesOf(sheet), (Strings{"3,0:3,1", "3,2:3,4"}));
    EXPECT_EQ(textsOf(sheet, 3), (Strings{"来电", "", "来人", "", ""}));
    EXPECT_EQ(textsOf(sheet, 4), (Strings{"报纸", "网络", "男", "女", "其它"}));
    EXPECT_EQ(textsOf(sheet, 5), (Strings{"1", "2", "3", "4", "5"}));
    // The second header row looks as the rows below it do.
    EXPECT_EQ(rowOf(sheet, 4)[0], "报纸: text general bottom bordered 10.5");
}

TEST_F(ExportSheet, AHeaderThatIsRepeatedBelowTakesBothRows) {
    setHeaders({"序", "来电", "合计"}, {"序", "报纸", "合计"});
    const Worksheet sheet = exported({0, 1, 2});
    EXPECT_EQ(headerMergesOf(sheet), (Strings{"3,0:4,0", "3,2:4,2"}));
    EXPECT_EQ(textsOf(sheet, 3), (Strings{"序", "来电", "合计"}));
    EXPECT_EQ(textsOf(sheet, 4), (Strings{"", "报纸", ""}));
}

TEST_F(ExportSheet, BehindARunTheLastColumnIsAskedWhoseUpperTextHasGone) {
    // The first column of the run repeats its header below, and is not asked.
    setHeaders({"来电", "来电"}, {"来电", "网络"});
    Worksheet sheet = exported({0, 1});
    EXPECT_EQ(headerMergesOf(sheet), Strings{"3,0:3,1"});
    EXPECT_EQ(textsOf(sheet, 4), (Strings{"来电", "网络"}));
    // Nor does the last one's own header count: it is empty by then, and so is equal to an empty one below.
    setHeaders({"来电", "来电"}, {"报纸", "来电"});
    sheet = exported({0, 1});
    EXPECT_EQ(headerMergesOf(sheet), Strings{"3,0:3,1"});
    EXPECT_EQ(textsOf(sheet, 4), (Strings{"报纸", "来电"}));
    setHeaders({"来电", "来电"}, {"报纸", ""});
    EXPECT_EQ(headerMergesOf(exported({0, 1})), Strings{"3,0:4,1"});
}

TEST_F(ExportSheet, OnlyTwoHeaderRowsAreMerged) {
    for (const int fixed : {1, 3}) {
        setHeaders({"来电", "来电", "合计"}, {"报纸", "网络", "合计"});
        grid.setRows(3);
        grid.setFixedRows(fixed);
        const Worksheet sheet = exported({0, 1, 2});
        EXPECT_TRUE(headerMergesOf(sheet).empty()) << fixed;
        EXPECT_EQ(textsOf(sheet, 3), (Strings{"来电", "来电", "合计"})) << fixed;
        EXPECT_EQ(textsOf(sheet, 4), (Strings{"报纸", "网络", "合计"})) << fixed;
    }
}

TEST_F(ExportSheet, WhatASheetCannotHoldIsRefused) {
    const auto refusal = [&](const std::vector<int>& columns) {
        try {
            exported(columns);
        } catch (const RuntimeFailure& failure) {
            return failure.description();
        }
        return std::string();
    };
    EXPECT_EQ(refusal({}), "没有可以合并的单元格");
    EXPECT_EQ(refusal(std::vector<int>(156, 0)), "");
    EXPECT_EQ(refusal(std::vector<int>(157, 0)), "最多可以输出 156 列");
    grid.setRows(65533);
    EXPECT_EQ(refusal({0}), "");
    grid.setRows(65534);
    EXPECT_EQ(refusal({0}), "工作表最多 65536 行");
}

}  // namespace
}  // namespace desk
