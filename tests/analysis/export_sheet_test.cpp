#include "analysis/export_sheet.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/text.h"
#include "support/cases.h"
#include "support/test_program.h"
#include "support/worksheet_words.h"

namespace desk {
namespace {

struct Form : Screen {
    Form() : Screen("form", "", WindowKind::child, 9000, 9000) {}
};

/// What a table becomes.
class ExportSheet : public testing::Test {
  protected:
    Worksheet exported(const std::vector<int>& columns) {
        const ExportTitles titles{"周报", "统计时段", "打印日期"};
        MemorySpreadsheets books;
        books.put("book",
                  exportSheet(grid, columns, "表", titles, [this](int rows) { reports.push_back(rows); }));
        return books.books.at("book").front();
    }
    void setRow(int row, const std::string& texts) {
        const auto cells = split(texts, '|');
        grid.setColumns(static_cast<int>(cells.size()));
        for (int column = 0; column < grid.columns(); ++column) {
            const auto& cell = cells[static_cast<std::size_t>(column)];
            grid.setText(row, column, cell == "." ? "" : cell);
        }
    }
    static std::string rowOf(const Worksheet& sheet, std::size_t row) {
        std::vector<std::string> texts;
        for (const auto& cell : sheet.rows().at(row)) texts.push_back(cell.text.empty() ? "." : cell.text);
        return join(texts, "|");
    }
    /// Of the header rows, behind the three of the titles.
    static std::string mergesOf(const Worksheet& sheet) {
        std::vector<std::string> merges;
        for (const auto& range : sheet.merges())
            merges.push_back(fmt::format("{},{}:{},{}", range.top, range.left, range.bottom, range.right));
        merges.erase(merges.begin(), merges.begin() + 3);
        return merges.empty() ? "none" : join(merges, " ");
    }

    Form form;
    Grid grid{form, "grid", "<名称|^日期|>数量|备注"};
    std::vector<int> reports;
};

TEST_F(ExportSheet, ChosenColumnsMoveTogetherWithTheirWidths) {
    grid.addRow({"甲", "2011-3-5", "5", "7"});
    grid.setColumnWidth(1, 1250);
    grid.setColumnWidth(3, 90);
    const auto lines = inWords(exported({1, 3}));
    EXPECT_EQ(lines.at(0), "sheet \"表\", widths 12.5 0.9, merges 0,0:0,1 1,0:1,1 2,0:2,1");
    EXPECT_EQ(lines.at(4),
              "row 3: \"日期|备注\" 1 x text centre distributed bordered 10.5, "
              "1 x number centre distributed bordered 10.5; row general centre distributed 0");
    EXPECT_EQ(lines.at(5),
              "row 4: \"2011-3-5|7\" 1 x text general bottom bordered 10.5, "
              "1 x number general bottom bordered 10.5");
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

TEST_F(ExportSheet, HeadersBecomeOneAsIsWrittenDown) {
    for (const auto& [where, fields] : casesIn("headers.txt")) {
        SCOPED_TRACE(where);
        const auto given = split(fields[0], ';');
        grid.setRows(3);
        grid.setFixedRows(std::stoi(given.at(0)));
        setRow(0, given.at(1));
        setRow(1, given.at(2));
        std::vector<int> columns(static_cast<std::size_t>(grid.columns()));
        for (int column = 0; column < grid.columns(); ++column)
            columns[static_cast<std::size_t>(column)] = column;
        const Worksheet sheet = exported(columns);
        EXPECT_EQ(mergesOf(sheet) + ";" + rowOf(sheet, 3) + ";" + rowOf(sheet, 4), fields[1]);
        // The second header row looks as the rows below it do.
        EXPECT_EQ(sheet.rows()[4][0].look, sheet.rows()[5][0].look);
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
