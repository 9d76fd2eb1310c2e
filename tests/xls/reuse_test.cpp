#include "platform/xls/sheet_frame.h"
#include "xls/fixture.h"
#include "xls/stream_tools.h"

namespace desk {
namespace {

using namespace xls;

using Reuse = WorkbookTest;

Worksheet report(const std::string& text) {
    Worksheet sheet("分析");
    sheet.at(0, 0).text = text;
    sheet.at(1, 1).text = text;
    sheet.setColumnWidth(2, 10);
    sheet.merge({0, 0, 0, 1});
    return sheet;
}

constexpr std::uint16_t header = 0x0014;
constexpr std::uint16_t selection = 0x001D;
constexpr std::uint16_t pane = 0x0041;
constexpr std::uint16_t zoom = 0x00A0;
constexpr std::uint16_t setup = 0x00A1;
constexpr std::uint16_t drawing = 0x00EC;
constexpr std::uint16_t filterArrows = 0x009D;
constexpr std::uint16_t conditions = 0x01B0;
constexpr std::uint16_t codeName = 0x01BA;
constexpr std::uint16_t formula = 0x0006;
constexpr std::uint16_t result = 0x0207;

std::string columns(std::uint32_t first, std::uint32_t last, std::uint32_t width, std::uint32_t flags) {
    return Bytes().shorts({first, last, width, 17, flags, 0}).take();
}
std::string window(std::uint32_t flags) {
    return Bytes().shorts({flags, 0, 0, 64, 0, 0, 0, 0, 0}).take();
}

/// A stream of two sheets, the second being a report to which a person has done all that one does to a sheet.
std::string workedOn() {
    constexpr std::uint32_t chart = 0x0020;
    std::string stream = streamWith(emptyWorkbook(), report("旧"));
    stream = withInLastSheet(stream, 1, id::bof,
                             rawRecord(id::index, std::string(16, '\0')) + rawRecord(header, "&A") +
                                 rawRecord(setup, std::string(34, 's')) +
                                 rawRecord(id::defaultColumnWidth, Bytes().shorts({9}).get()) +
                                 rawRecord(id::columnInfo, columns(0, 1, 3000, 0)));
    stream = withInLastSheet(
        stream, 1, id::labelSst,
        rawRecord(formula, std::string(22, 'f')) + rawRecord(result, "r") + rawRecord(id::continuation, "r"));
    // The width that the report set before is the third; two further ones follow.
    stream.replace(stream.rfind(columns(2, 2, 10 * 256 + 160, 2).substr(0, 6)), 12,
                   columns(2, 5, 4000, 1) + rawRecord(filterArrows, "3"));
    const std::string ownWindow =
        rawRecord(id::window2, Bytes().shorts({0xB6, 0, 0, 64, 0, 0, 0, 0, 0}).get());
    const std::string windows = rawRecord(drawing, "picture") + rawRecord(id::continuation, "more of it") +
                                startRecord(chart) + rawRecord(setup, "of the chart") +
                                rawRecord(id::eof, {}) + rawRecord(id::window2, window(0x06BE)) +
                                rawRecord(id::window2, window(0x00BE)) + rawRecord(zoom, "zoom") +
                                rawRecord(pane, "frozen panes") + rawRecord(selection, "the cell");
    const std::size_t at = stream.rfind(ownWindow);
    EXPECT_NE(at, std::string::npos);
    stream.replace(at, ownWindow.size(), windows);
    return withInLastSheet(stream, 1, id::mergeCells,
                           rawRecord(conditions, "red") + rawRecord(codeName, "Sheet7"));
}

std::vector<std::string> withoutCells(const std::vector<Record>& sheet) {
    std::vector<std::string> kept;
    for (const Record& each : sheet)
        if (each.id != id::row && each.id != id::labelSst && each.id != id::dimensions)
            kept.push_back(std::to_string(each.id) + ":" + std::string(each.body));
    return kept;
}

TEST_F(Reuse, ASheetUsedAgainKeepsAllThatIsNoCell) {
    const std::string stream = streamWith(workedOn(), report("新"));
    const auto sheet = sheetOf(stream, 1);
    const auto line = [](std::uint16_t id, const std::string& body) {
        return std::to_string(id) + ":" + body;
    };
    const std::string start = line(id::bof, startRecord(0x0010).substr(headerSize));
    const std::string merge = Bytes().shorts({1, 0, 0, 0, 1}).take();
    EXPECT_EQ(withoutCells(sheet),
              (std::vector<std::string>{start,
                                        line(header, "&A"),
                                        line(setup, std::string(34, 's')),
                                        line(id::defaultColumnWidth, Bytes().shorts({9}).take()),
                                        line(id::columnInfo, columns(0, 1, 3000, 0)),
                                        line(id::columnInfo, columns(2, 2, 10 * 256 + 160, 2)),
                                        line(id::columnInfo, columns(3, 5, 4000, 1)),
                                        line(filterArrows, "3"),
                                        line(drawing, "picture"),
                                        line(id::continuation, "more of it"),
                                        line(id::bof, startRecord(0x0020).substr(headerSize)),
                                        line(setup, "of the chart"),
                                        line(id::eof, ""),
                                        line(id::window2, window(0x06BE)),
                                        line(id::window2, window(0x00BE)),
                                        line(zoom, "zoom"),
                                        line(pane, "frozen panes"),
                                        line(selection, "the cell"),
                                        line(id::mergeCells, merge),
                                        line(codeName, "Sheet7"),
                                        line(id::eof, "")}));
    EXPECT_EQ(
        std::count_if(sheet.begin(), sheet.end(), [](const auto& each) { return each.id == id::labelSst; }),
        2);
    // Once more, and nothing changes any more.
    EXPECT_TRUE(streamWith(stream, report("新")) == stream);
}

TEST_F(Reuse, TheFirstWindowIsShownAndANewSheetHasAsManyViewsAsThereAreWindows) {
    constexpr std::size_t flagsAt = 8;
    const auto windows = [](std::string_view stream) {
        std::vector<std::uint32_t> flags;
        for (const Record& each : globalsOf(stream))
            if (each.id == id::window1) flags.push_back(shortAt(each.body, flagsAt));
        return flags;
    };
    std::string body(globalsOf(emptyWorkbook())[2].body);
    ASSERT_EQ(globalsOf(emptyWorkbook())[2].id, id::window1);
    putShort(body, flagsAt, 0x39);
    const std::string hidden = rawRecord(id::window1, body);
    const std::string stream =
        streamWith(withGlobal(emptyWorkbook(), id::window1, hidden + hidden), report("新"));
    EXPECT_EQ(windows(stream), (std::vector<std::uint32_t>{0x38, 0x39}));
    std::vector<std::string> views;
    for (const Record& each : sheetOf(stream, 1))
        if (each.id == id::window2) views.emplace_back(each.body);
    EXPECT_EQ(views, (std::vector<std::string>{window(0x00B6), window(0x00B6)}));
}

}  // namespace
}  // namespace desk
