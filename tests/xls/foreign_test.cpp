#include <algorithm>

#include "xls/fixture.h"

namespace desk {
namespace {

/// Workbooks that other programs have made, and read.
class Foreign : public WorkbookTest {
  protected:
    /// All at once, for that program takes its time to start.
    void convertByLibreOffice(const std::string& format, const std::string& to,
                              std::initializer_list<const char*> files) const {
        std::string command = "soffice -env:UserInstallation=file://" + path("profile") +
                              " --headless --convert-to " + format + " --outdir '" + path(to) + "'";
        for (const char* file : files) command += " '" + path(file) + "'";
        run(command + " 2>&1");
    }
    void expectEveryRecordOfOthersKept(const std::string& maker);
    void expectOpenedByGnumeric(const std::string& file) const;

    static std::vector<std::string> records(const std::string& file) {
        return run("/usr/bin/python3 " TEST_FOLDER "/records.py '" + file + "'");
    }
    static bool isOfCells(const std::string& line) {
        for (const char* id : {"0006", "003c", "00bd", "00be", "00d7", "00e5", "00fd", "0200", "0201", "0203",
                               "0207", "0208", "020b", "027e", "04bc"})
            if (line.starts_with(std::string(id) + " ")) return true;
        return false;
    }
    static Worksheet report() {
        Worksheet sheet("分析");
        CellLook look;
        look.format = CellLook::Format::number;
        look.bordered = true;
        look.fontSize = 10.5;
        for (int row = 0; row < 50; ++row) {
            sheet.at(row, 0) = {"状态" + std::to_string(row), {}};
            sheet.at(row, 1) = {std::to_string(row) + ".25", look};
        }
        sheet.merge({0, 0, 0, 1});
        return sheet;
    }
};

void Foreign::expectEveryRecordOfOthersKept(const std::string& maker) {
    const std::string file = path(maker + ".xls");
    const auto records0 = records(file);
    const auto seen0 = readBack(file);
    spreadsheets.put(file, report());
    const auto records1 = records(file);
    const auto seen1 = readBack(file);
    ASSERT_GT(records1.size(), records0.size());
    EXPECT_TRUE(std::equal(records0.begin(), records0.end(), records1.begin()));
    ASSERT_GT(seen1.size(), seen0.size());
    EXPECT_TRUE(std::equal(seen0.begin(), seen0.end(), seen1.begin()));
    EXPECT_EQ(seen1[seen0.size()], "sheet|分析|50x2|visible=True");

    expectOpenedByGnumeric(file);
    std::filesystem::copy_file(file, path(maker + "-put.xls"));

    // Once more, in the place of the sheet that was just written, and then of one of the others.
    spreadsheets.put(file, report());
    EXPECT_EQ(readBack(file), seen1);
    Worksheet data("数据");
    data.at(0, 0).text = "新";
    spreadsheets.put(file, data);
    const auto records2 = records(file);
    const auto second = std::find_if(records1.begin() + 1, records1.end(),
                                     [](const auto& line) { return line.starts_with("sheet"); });
    const auto kept = std::find_if(records2.begin() + 1, records2.end(),
                                   [](const auto& line) { return line.starts_with("sheet"); });
    EXPECT_TRUE(std::equal(second, records1.end(), kept, records2.end()));
    // What is no cell stays with the sheet, its views above all.
    const auto setUp = [](auto from, auto to) {
        std::vector<std::string> lines;
        for (; from != to; ++from)
            if (!isOfCells(*from)) lines.push_back(*from);
        return lines;
    };
    EXPECT_EQ(setUp(records2.begin(), kept), setUp(records1.begin(), second));
    EXPECT_GT(setUp(records2.begin(), kept).size(), 10U);
}

void Foreign::expectOpenedByGnumeric(const std::string& file) const {
    run("ssconvert --recalc -T Gnumeric_stf:stf_csv -S '" + file + "' '" + path("sheet-%n.csv") + "' 2>&1");
    const auto byGnumeric = bytesOf(path("sheet-3.csv"));
    EXPECT_TRUE(byGnumeric.starts_with("状态0,0.25")) << byGnumeric.substr(0, 200);
    EXPECT_EQ(std::count(byGnumeric.begin(), byGnumeric.end(), '\n'), 50);
    EXPECT_TRUE(bytesOf(path("sheet-1.csv")).starts_with("119700"));
}

/// What another program makes of cells, formats and merges, xlrd must read in both.
Worksheet formatted() {
    Worksheet sheet("分析");
    CellLook title;
    title.across = CellLook::Across::centre;
    title.down = CellLook::Down::distributed;
    title.fontSize = 18;
    for (int column = 0; column < 4; ++column) sheet.at(0, column) = {column == 0 ? "标题" : "", title};
    CellLook text;
    text.format = CellLook::Format::text;
    text.fontSize = 10.5;
    CellLook number = text;
    number.format = CellLook::Format::number;
    number.bordered = true;
    for (int row = 1; row < 100; ++row) {
        sheet.at(row, 0) = {"00" + std::to_string(row), text};
        sheet.at(row, 1) = {std::to_string(row) + ".25", number};
    }
    sheet.setColumnWidth(0, 20);
    sheet.merge({0, 0, 0, 3});
    return sheet;
}

TEST_F(Foreign, SheetsKeepEveryRecordAndAllProgramsOpenTheResult) {
    run("/usr/bin/python3 " TEST_FOLDER "/make_workbook.py '" + path("xlwt.xls") + "'");
    run("ssconvert -T Gnumeric_Excel:excel_biff8 '" + path("xlwt.xls") + "' '" + path("gnumeric.xls") +
        "' 2>&1");
    spreadsheets.create(path("own.xls"));
    spreadsheets.put(path("own.xls"), formatted());
    convertByLibreOffice("xls", "made", {"xlwt.xls", "own.xls"});
    std::filesystem::rename(path("made/xlwt.xls"), path("libreoffice.xls"));
    for (const char* maker : {"xlwt", "gnumeric", "libreoffice"}) {
        SCOPED_TRACE(maker);
        expectEveryRecordOfOthersKept(maker);
    }
    convertByLibreOffice("fods", "seen", {"xlwt-put.xls", "gnumeric-put.xls", "libreoffice-put.xls"});
    for (const std::string maker : {"xlwt", "gnumeric", "libreoffice"}) {
        const auto seen = bytesOf(path("seen/" + maker + "-put.fods"));
        for (const char* part : {"table:name=\"分析\"", "table:name=\"汇总\"", "状态49",
                                 "office:value=\"49.25\"", "office:value=\"119700\"", "of:=SUM("})
            EXPECT_NE(seen.find(part), std::string::npos) << maker << " " << part;
    }

    const auto first = readBack(path("own.xls"));
    const auto second = readBack(path("made/own.xls"));
    EXPECT_EQ(linesOf(first, "cell"), linesOf(second, "cell"));
    EXPECT_EQ(linesOf(first, "merge"), linesOf(second, "merge"));
    // The other program writes the widths of all columns, those of the first sheet first.
    const auto firstColumn = [](const std::vector<std::string>& lines) {
        int width = 0;
        for (const auto& line : linesOf(lines, "width"))
            if (line.starts_with("0|")) width = std::stoi(line.substr(2));
        return width;
    };
    EXPECT_EQ(firstColumn(first), 20 * 256 + 160);
    EXPECT_NEAR(firstColumn(first), firstColumn(second), 2);
}

}  // namespace
}  // namespace desk
