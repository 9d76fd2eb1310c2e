#include "xls/fixture.h"

namespace desk {
namespace {

using Writing = WorkbookTest;

/// A small table with every look that an export uses.
Worksheet table(const std::string& name) {
    Worksheet sheet(name);
    CellLook title;
    title.across = CellLook::Across::centre;
    title.down = CellLook::Down::distributed;
    title.fontSize = 18;
    sheet.at(0, 0) = {"客户跟进状态分析", title};
    sheet.setRowLook(0, title);
    CellLook text;
    text.format = CellLook::Format::text;
    text.bordered = true;
    text.fontSize = 10.5;
    CellLook number = text;
    number.format = CellLook::Format::number;
    sheet.at(3, 0) = {"状态", text};
    sheet.at(3, 1) = {"数量", number};
    sheet.at(4, 0) = {"0012", text};
    sheet.at(4, 1) = {"12.5", number};
    sheet.at(5, 0) = {"Été", text};
    sheet.at(5, 1) = {"", number};
    sheet.setColumnWidth(0, 12.4);
    sheet.merge({0, 0, 0, 1});
    return sheet;
}

TEST_F(Writing, AnotherProgramReadsWhatWasWritten) {
    spreadsheets.create(path("new.xls"));
    spreadsheets.put(path("new.xls"), table("分析"));
    const auto lines = readBack(path("new.xls"));
    EXPECT_EQ(linesOf(lines, "sheet"),
              (std::vector<std::string>{"Sheet1|0x0|visible=True", "分析|6x2|visible=True"}));
    EXPECT_EQ(linesOf(lines, "merge"), std::vector<std::string>{"0,0:0,1"});
    EXPECT_EQ(linesOf(lines, "width"), std::vector<std::string>{"0|3334"});
    EXPECT_EQ(linesOf(lines, "row"),
              (std::vector<std::string>{"0|450", "1|285", "2|285", "3|285", "4|285", "5|285"}));
    EXPECT_EQ(linesOf(lines, "cell"),
              (std::vector<std::string>{"0,0|text|客户跟进状态分析|General|2,4|0|360",
                                        "3,0|text|状态|@|0,2|1|210", "3,1|text|数量|0.00_ |0,2|1|210",
                                        "4,0|text|0012|@|0,2|1|210", "4,1|number|12.5|0.00_ |0,2|1|210",
                                        "5,0|text|Été|@|0,2|1|210", "5,1|blank||0.00_ |0,2|1|210"}));
}

TEST_F(Writing, ASheetOfTheSameNameIsWrittenAnewWhereItStands) {
    spreadsheets.create(path("new.xls"));
    spreadsheets.put(path("new.xls"), table("Report"));
    Worksheet other("其它");
    other.at(0, 0).text = "乙";
    spreadsheets.put(path("new.xls"), other);
    Worksheet again("REPORT");
    again.at(0, 0).text = "甲";
    spreadsheets.put(path("new.xls"), again);
    const auto lines = readBack(path("new.xls"));
    EXPECT_EQ(linesOf(lines, "sheet"),
              (std::vector<std::string>{"Sheet1|0x0|visible=True", "Report|1x1|visible=True",
                                        "其它|1x1|visible=True"}));
    EXPECT_EQ(linesOf(lines, "cell"),
              (std::vector<std::string>{"0,0|text|甲|General|0,2|0|240", "0,0|text|乙|General|0,2|0|240"}));
    EXPECT_TRUE(linesOf(lines, "merge").empty());
}

TEST_F(Writing, TextsOfEveryLengthSurvive) {
    Worksheet sheet("长");
    // Texts that end just before, at and behind the end of a record, in one and in two bytes a character.
    int row = 0;
    for (const int length : {1, 8190, 8203, 8204, 8205, 8206, 8207, 8220, 32767}) {
        sheet.at(row, 0).text = std::string(static_cast<std::size_t>(length), static_cast<char>('a' + row));
        std::string wide;
        for (int i = 0; i < length; ++i) wide += i % 2 != 0 ? "汉" : "字";
        sheet.at(row, 1).text = wide + std::to_string(row);
        if (length == 32767) sheet.at(row, 1).text = wide;
        ++row;
    }
    spreadsheets.create(path("long.xls"));
    spreadsheets.put(path("long.xls"), sheet);
    Worksheet more("再");
    more.at(0, 0).text = "尾";
    spreadsheets.put(path("long.xls"), more);
    const auto cells = linesOf(readBack(path("long.xls")), "cell");
    ASSERT_EQ(cells.size(), static_cast<std::size_t>(2 * row + 1));
    for (int i = 0; i < row; ++i)
        for (int column = 0; column < 2; ++column) {
            const auto& written = sheet.at(i, column).text;
            const auto& read = cells[static_cast<std::size_t>(2 * i + column)];
            EXPECT_TRUE(read.find("|text|" + written + "|") != std::string::npos) << i << "," << column;
        }
    EXPECT_TRUE(cells.back().starts_with("0,0|text|尾|"));
}

TEST_F(Writing, ManySheetsTextsAndMergesFit) {
    Worksheet sheet("多");
    for (int row = 0; row < 3000; ++row) {
        sheet.at(row, 0).text = "第" + std::to_string(row) + "行";
        sheet.merge({row, 0, row, 1});
    }
    spreadsheets.create(path("many.xls"));
    spreadsheets.put(path("many.xls"), sheet);
    for (int i = 0; i < 40; ++i) {
        Worksheet small("S" + std::to_string(i));
        small.at(0, 0) = {"x", CellLook{.fontSize = 8.0 + i}};
        spreadsheets.put(path("many.xls"), small);
    }
    const auto lines = readBack(path("many.xls"));
    EXPECT_EQ(linesOf(lines, "merge").size(), 3000U);
    const auto cells = linesOf(lines, "cell");
    ASSERT_EQ(cells.size(), 3040U);
    EXPECT_EQ(cells[2999], "2999,0|text|第2999行|General|0,2|0|240");
    EXPECT_EQ(cells.back(), "0,0|text|x|General|0,2|0|940");
}

TEST_F(Writing, WhatTheFormatCannotHoldIsRefusedBeforeTheFileIsTouched) {
    Worksheet sheet("界");
    EXPECT_EQ(failureTextOf([&] { sheet.at(65536, 0); }), "工作表最多 65536 行");
    EXPECT_EQ(failureTextOf([&] { sheet.at(0, 256); }), "工作表最多 256 列");
    EXPECT_EQ(failureTextOf([&] { sheet.setColumnWidth(0, 256); }), "列宽必须在 0 到 255 个字符之间");
    EXPECT_EQ(failureTextOf([&] { sheet.merge({0, 0, 0, -1}); }), "没有可以合并的单元格");
    spreadsheets.create(path("a.xls"));
    const auto before = bytesOf(path("a.xls"));
    for (const std::string name :
         {"", "a/b", "a:b", "[x]", "'x", "三十二三十二三十二三十二三十二三十二三十二三十二三十二三十二三十"})
        EXPECT_NE(failureTextOf([&] { spreadsheets.put(path("a.xls"), Worksheet(name)); }), "") << name;
    sheet.at(0, 0).text = std::string(32768, 'x');
    EXPECT_EQ(failureTextOf([&] { spreadsheets.put(path("a.xls"), sheet); }),
              "单元格的文字最多 32767 个字符");
    EXPECT_EQ(bytesOf(path("a.xls")), before);
    EXPECT_NE(failureTextOf([&] { spreadsheets.create("/proc/none/x.xls"); }), "");
}

}  // namespace
}  // namespace desk
