#include <algorithm>

#include "platform/xls/container.h"
#include "xls/fixture.h"
#include "xls/stream_tools.h"

namespace desk {
namespace {

using namespace xls;

/// Workbooks that other programs write, and open.
class OddBooks : public WorkbookTest {
  protected:
    static Worksheet sheetOfTexts(const std::string& name, const std::vector<std::string>& texts) {
        Worksheet sheet(name);
        for (std::size_t row = 0; row < texts.size(); ++row)
            sheet.at(static_cast<int>(row), 0).text = texts[row];
        return sheet;
    }
    static std::string bookOf(const std::vector<std::pair<std::string, std::string>>& streams) {
        Entry root;
        root.isFolder = true;
        for (const auto& [name, bytes] : streams) root.children.push_back({name, false, {bytes}, {}, {}});
        return writeContainer(root);
    }
    static std::vector<std::string> namesIn(const std::string& file) {
        std::vector<std::string> names;
        for (const auto& entry : readContainer(file).children) names.push_back(entry.name);
        return names;
    }
    /// The cells of a book as xlrd reads them, without their looks.
    std::vector<std::string> cellsOf(const std::string& stream) {
        std::ofstream(path("odd.xls"), std::ios::binary) << bookOf({{"Workbook", stream}});
        std::vector<std::string> cells;
        for (const auto& line : linesOf(readBack(path("odd.xls")), "cell"))
            cells.push_back(join({split(line, '|')[0], split(line, '|')[2]}, "="));
        return cells;
    }
    const Worksheet added = sheetOfTexts("新", {"甲", "新文字"});
};

TEST_F(OddBooks, TheStreamIsFoundByItsContentsAndNoStaleOneIsLeft) {
    const std::string stream = emptyWorkbook();
    for (const char* name : {"WORKBOOK", "workbook", "Book", "BOOK"}) {
        const std::string after = fileWithSheet(bookOf({{name, stream}}), added);
        EXPECT_EQ(namesIn(after), std::vector<std::string>{name});
        EXPECT_EQ(sheetOf(readContainer(after).children.front().parts.front(), 1).empty(), false) << name;
    }
    const std::string both =
        fileWithSheet(bookOf({{"BOOK", "for an older program"}, {"Workbook", stream}}), added);
    EXPECT_EQ(namesIn(both), std::vector<std::string>{"Workbook"});
}

TEST_F(OddBooks, TextsThatAreAnnouncedButMissingStayMissing) {
    std::string stream = streamWith(emptyWorkbook(), sheetOfTexts("旧", {"甲", "乙", "丙"}));
    std::string texts;
    for (const Record& each : globalsOf(stream))
        if (each.id == id::sst) texts = each.body;
    const std::vector<std::string> seen = {"0,0=甲", "1,0=乙", "2,0=", "0,0=甲", "1,0=新文字"};
    // Nine texts are said to be there; the third one is cut off, or not there at all.
    putLong(texts, 4, 9);
    for (const std::size_t missing : {1U, 5U})
        EXPECT_EQ(cellsOf(streamWith(withGlobal(stream, id::sst,
                                                rawRecord(id::sst, texts.substr(0, texts.size() - missing))),
                                     added)),
                  seen)
            << missing;
}

/// A large picture goes on over many records right ahead of the texts, and new looks come ahead of both.
TEST_F(OddBooks, TheTextsStandBehindThePicturesHoweverManyLooksAreAdded) {
    constexpr std::uint16_t pictures = 0x00EB;
    constexpr int parts = 20;
    std::string stream = streamWith(emptyWorkbook(), sheetOfTexts("旧", {"甲"}));
    std::string before = rawRecord(pictures, "picture");
    for (int i = 0; i < parts; ++i) before += rawRecord(id::continuation, "more of it");
    for (const Record& each : globalsOf(stream))
        if (each.id == id::sst) before += rawRecord(id::sst, std::string(each.body));
    stream = withGlobal(stream, id::sst, before);
    Worksheet sheet = sheetOfTexts("新", {"乙"});
    for (int column = 1; column < 15; ++column) {
        CellLook look;
        look.fontSize = 10 + column;
        sheet.at(0, column) = {"丙", look};
    }
    std::vector<std::uint16_t> order;
    for (const Record& each : globalsOf(streamWith(stream, sheet))) order.push_back(each.id);
    const auto at = std::find(order.begin(), order.end(), pictures);
    ASSERT_GT(order.end() - at, parts + 1);
    EXPECT_EQ(std::count(at + 1, at + 1 + parts, std::uint16_t{id::continuation}), parts);
    EXPECT_EQ(*(at + 1 + parts), id::sst);
}

TEST_F(OddBooks, AnEmptyContinuationOfTheTextsHoldsNothing) {
    const std::string stream = streamWith(emptyWorkbook(), sheetOfTexts("旧", {"甲", "乙", "丙"}));
    std::string texts;
    for (const Record& each : globalsOf(stream))
        if (each.id == id::sst) texts = each.body;
    constexpr std::size_t endOfSecond = 8 + 2 * 5;
    const auto parts = [&](const std::string& between) {
        return rawRecord(id::sst, texts.substr(0, endOfSecond)) + between +
               rawRecord(id::continuation, texts.substr(endOfSecond));
    };
    const std::vector<std::string> seen = {"0,0=甲", "1,0=乙", "2,0=丙", "0,0=甲", "1,0=新文字"};
    const std::string empty = rawRecord(id::continuation, {});
    EXPECT_EQ(cellsOf(streamWith(withGlobal(stream, id::sst, parts(empty)), added)), seen);
    EXPECT_EQ(cellsOf(streamWith(withGlobal(stream, id::sst, rawRecord(id::sst, texts) + empty), added)),
              seen);
}

TEST_F(OddBooks, ATextWithFontsOfItsOwnIsNotThePlainOne) {
    constexpr std::uint32_t wideAndRich = 9;
    const std::string rich =
        Bytes().u32(2).u32(2).u16(1).u8(wideAndRich).shorts({1, u'甲', 0, 2}).u16(1).u8(1).u16(u'乙').take();
    std::string stream = streamWith(emptyWorkbook(), sheetOfTexts("旧", {"甲", "乙"}));
    stream =
        streamWith(withGlobal(stream, id::sst, rawRecord(id::sst, rich)), sheetOfTexts("新", {"甲", "乙"}));
    std::vector<std::uint32_t> numbers;
    for (const Record& each : sheetOf(stream, 2))
        if (each.id == id::labelSst) numbers.push_back(longAt(each.body, 6));
    EXPECT_EQ(numbers, (std::vector<std::uint32_t>{2, 1}));
    for (const Record& each : globalsOf(stream))
        if (each.id == id::sst) {
            EXPECT_EQ(longAt(each.body, 0), 4U);
            EXPECT_EQ(longAt(each.body, 4), 3U);
            EXPECT_TRUE(each.body.substr(8).starts_with(std::string_view(rich).substr(8)));
        }
}

TEST_F(OddBooks, ABookWithoutAPasswordOfItsOwnIsToldFromASecretOne) {
    const auto refusals = [&](const std::string& password) {
        std::vector<std::string> whys;
        for (const auto& line : run("/usr/bin/python3 " TEST_FOLDER "/file_pass.py " + password)) {
            std::string record;
            for (std::size_t i = 0; i < line.size(); i += 2)
                record.push_back(static_cast<char>(std::stoi(line.substr(i, 2), nullptr, 16)));
            std::string stream = emptyWorkbook();
            stream.insert(recordAt(stream, 0).end(), rawRecord(id::filePass, record));
            whys.push_back(failureTextOf([&] { withSheet(stream, added); }));
        }
        return whys;
    };
    const std::string tellsWhatToDo =
        "工作簿受保护，不能写入。请在电子表格程序中撤消工作簿保护（“审阅”→“保护工作簿”），保存后再输出";
    EXPECT_EQ(refusals("VelvetSweatshop"), std::vector<std::string>(4, tellsWhatToDo));
    EXPECT_EQ(refusals("secret"), std::vector<std::string>(4, "文件已加密，不能写入"));
    for (std::size_t size = 0; size < 60; ++size) {
        std::string stream = emptyWorkbook();
        stream.insert(recordAt(stream, 0).end(), rawRecord(id::filePass, std::string(size, '\1')));
        EXPECT_EQ(failureTextOf([&] { withSheet(stream, added); }), "文件已加密，不能写入") << size;
    }
}

TEST_F(OddBooks, HalfARecordAtTheEndIsRefused) {
    const std::string stream = emptyWorkbook();
    const std::string record = rawRecord(id::labelSst, "0123456789");
    for (std::size_t size = 1; size < record.size(); ++size)
        EXPECT_EQ(failureTextOf([&] { withSheet(stream + record.substr(0, size), added); }),
                  "文件已损坏，不能写入")
            << size;
    for (const auto& rest : {record, std::string(700, '\0'), std::string()})
        EXPECT_EQ(cellsOf(streamWith(stream + rest, added)).size(), 2U);
}

}  // namespace
}  // namespace desk
