#include "platform/xls/sheet_frame.h"

#include <algorithm>
#include <array>

#include "platform/xls/record.h"

namespace desk::xls {

namespace {

/// What goes when the cells go: they themselves, the formulas and texts that they share, where they lie, and
/// what is said of ranges of them (merges, conditions, rules for input, links, a running filter).
constexpr std::array<std::uint16_t, 34> ofCells = {
    0x0006, 0x009B, 0x009E, 0x00BC, 0x00BD, 0x00BE, 0x00D6, 0x00D7, 0x00E5, 0x00FD, 0x01B0, 0x01B1,
    0x01B2, 0x01B8, 0x01BE, 0x0200, 0x0201, 0x0203, 0x0204, 0x0205, 0x0206, 0x0207, 0x0208, 0x020B,
    0x0221, 0x0236, 0x027E, 0x0406, 0x04BC, 0x0800, 0x0879, 0x087A, 0x087B, 0x087E};
/// What carries on the record before it.
constexpr std::array<std::uint16_t, 4> continuations = {id::continuation, 0x0812, 0x0875, 0x087F};
/// A window with its zoom, panes and selections, and the usual width of columns that follows them.
constexpr std::array<std::uint16_t, 6> ofWindows = {id::window2, 0x001D, 0x0041, 0x0099, 0x00A0, 0x088B};

template <std::size_t count>
bool isOneOf(const std::array<std::uint16_t, count>& ids, std::uint16_t id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

/// Sorts the records of an old sheet into its frame, one after the other.
class Sorter {
  public:
    explicit Sorter(SheetFrame& frame) : frame_(frame), part_(&frame.head) {}

    void take(const Record& record) {
        // Charts stand inside a sheet as streams of their own, and follow what they belong to.
        if (record.id == id::bof) ++depth_;
        if (depth_ == 1 && record.id != id::bof && !isOneOf(continuations, record.id)) choose(record);
        if (record.id == id::eof && --depth_ == 0) return;
        if (kept_) *part_ += Bytes().record(record.id, record.body).get();
    }

  private:
    void choose(const Record& record) {
        const bool ofColumns = record.id == id::columnInfo || record.id == id::defaultColumnWidth;
        const bool ofCell = isOneOf(ofCells, record.id);
        if (isOneOf(ofWindows, record.id)) {
            windows_ = true;
            part_ = &frame_.behindCells;
        } else if (windows_) {
            part_ = &frame_.tail;
        } else if (ofCell && record.id != id::index) {
            part_ = &frame_.behindCells;
        } else if (part_ == &frame_.head && behindColumns_ && !ofColumns) {
            part_ = &frame_.beforeCells;
        }
        behindColumns_ = behindColumns_ || ofColumns;
        kept_ = !ofCell;
        if (record.id == id::columnInfo && takeColumns(record.body)) kept_ = false;
    }

    bool takeColumns(std::string_view body) {
        constexpr std::size_t rangeSize = 4;
        constexpr std::size_t wholeSize = 10;
        if (body.size() < wholeSize) return false;
        frame_.columns.push_back({shortAt(body, 0), shortAt(body, 2), std::string(body.substr(rangeSize))});
        return true;
    }

    SheetFrame& frame_;
    std::string* part_;
    int depth_ = 0;
    bool behindColumns_ = false;
    bool windows_ = false;
    bool kept_ = true;
};

void addWindows(std::string& part, std::size_t count, Shown shown) {
    constexpr std::uint32_t usualParts = 0x00B6;  // lines, headings, zeros, their usual colour, outlines
    constexpr std::uint32_t selectedAndShown = 0x0600;
    constexpr std::uint32_t lineColour = 64;
    Bytes body;
    body.u16(usualParts | (shown == Shown::first ? selectedAndShown : 0)).u16(0).u16(0);
    body.u32(lineColour).u16(0).u16(0).u32(0);
    for (std::size_t i = 0; i < std::max<std::size_t>(count, 1); ++i)
        part += Bytes().record(id::window2, body.get()).get();
}

}  // namespace

SheetFrame newFrame(std::size_t windows, Shown shown) {
    SheetFrame frame;
    frame.head = startRecord(sheetKind);
    addWindows(frame.behindCells, windows, shown);
    return frame;
}

SheetFrame frameOf(std::string_view sheet) {
    SheetFrame frame;
    Sorter sorter(frame);
    for (std::size_t at = 0; at < sheet.size();) {
        const Record record = recordAt(sheet, at);
        sorter.take(record);
        at = record.end();
    }
    return frame;
}

std::string startRecord(std::uint16_t kind) {
    constexpr std::uint32_t version = 0x0600;
    constexpr std::uint32_t build = 0x0DBB;
    constexpr std::uint32_t year = 1996;
    Bytes body;
    body.u16(version).u16(kind).u16(build).u16(year).u32(0).u32(6);
    return Bytes().record(id::bof, body.get()).take();
}

}  // namespace desk::xls
