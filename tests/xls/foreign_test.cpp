#include <algorithm>

#include "xls/fixture.h"

namespace desk {
namespace {

/// Workbooks that other programs have made.
class Foreign : public WorkbookTest {
  protected:
    /// A workbook of three sheets, written by the program of that name.
    std::string made(const std::string& program) {
        run("/usr/bin/python3 " TEST_FOLDER "/make_workbook.py '" + path("xlwt.xls") + "'");
        if (program == "xlwt") return path("xlwt.xls");
        const std::string out = path(program + ".xls");
        if (program == "gnumeric")
            run("ssconvert -T Gnumeric_Excel:excel_biff8 '" + path("xlwt.xls") + "' '" + out + "' 2>&1");
        else
            convertByLibreOffice(path("xlwt.xls"), "xls", out);
        return out;
    }
    void convertByLibreOffice(const std::string& in, const std::string& format, const std::string& out) {
        const std::string target = path("converted");
        run("soffice -env:UserInstallation=file://" + path("profile") + " --headless --convert-to " + format +
            " --outdir '" + target + "' '" + in + "' 2>&1");
        const auto name =
            std::filesystem::path(in).stem().string() + "." + format.substr(0, format.find(':'));
        std::filesystem::rename(target + "/" + name, out);
    }
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

class ForeignMaker : public Foreign, public testing::WithParamInterface<const char*> {};

TEST_P(ForeignMaker, OtherSheetsKeepEveryRecord) {
    const std::string file = made(GetParam());
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

TEST_P(ForeignMaker, OtherProgramsOpenTheResult) {
    const std::string file = made(GetParam());
    spreadsheets.put(file, report());
    run("ssconvert --recalc -T Gnumeric_stf:stf_csv -S '" + file + "' '" + path("sheet-%n.csv") + "' 2>&1");
    const auto byGnumeric = bytesOf(path("sheet-3.csv"));
    EXPECT_TRUE(byGnumeric.starts_with("状态0,0.25")) << byGnumeric.substr(0, 200);
    EXPECT_EQ(std::count(byGnumeric.begin(), byGnumeric.end(), '\n'), 50);
    EXPECT_TRUE(bytesOf(path("sheet-1.csv")).starts_with("119700"));

    convertByLibreOffice(file, "fods", path("seen.fods"));
    const auto byLibreOffice = bytesOf(path("seen.fods"));
    for (const char* part : {"table:name=\"分析\"", "table:name=\"汇总\"", "状态49", "office:value=\"49.25\"",
                             "office:value=\"119700\"", "of:=SUM("})
        EXPECT_NE(byLibreOffice.find(part), std::string::npos) << part;
}

/// The lines of a workbook that other programs keep as they are: xlrd's reading after LibreOffice's.
TEST_F(Foreign, CellsFormatsAndMergesAreTheSameByTwoReaders) {
    spreadsheets.create(path("own.xls"));
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
    spreadsheets.put(path("own.xls"), sheet);
    convertByLibreOffice(path("own.xls"), "xls", path("again.xls"));
    const auto first = readBack(path("own.xls"));
    const auto second = readBack(path("again.xls"));
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

INSTANTIATE_TEST_SUITE_P(Makers, ForeignMaker, testing::Values("xlwt", "gnumeric", "libreoffice"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace
}  // namespace desk
