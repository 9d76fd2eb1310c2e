#include "platform/xls/sheet_stream.h"

#include <algorithm>
#include <cmath>

#include "base/number.h"
#include "platform/xls/record.h"

namespace desk::xls {

namespace {

constexpr std::uint16_t sheetKind = 0x0010;
constexpr int usualRowHeight = 285;  ///< twips, as of a font of 12 points

class Writer {
  public:
    Writer(const Worksheet& sheet, Looks& looks, SharedStrings& texts)
        : sheet_(sheet), looks_(looks), texts_(texts) {}

    std::string write(Shown shown) {
        out_.raw(startRecord(sheetKind));
        for (const auto& [column, width] : sheet_.columnWidths()) writeWidth(column, width);
        writeDimensions();
        // Rows come in blocks of 32: first what the rows are, then what stands in them.
        constexpr std::size_t block = 32;
        const std::size_t count = sheet_.rows().size();
        for (std::size_t first = 0; first < count; first += block) {
            const std::size_t end = std::min(first + block, count);
            for (std::size_t row = first; row < end; ++row) writeRow(row);
            for (std::size_t row = first; row < end; ++row) writeCells(row);
        }
        writeWindow(shown);
        writeMerges();
        return out_.record(id::eof, {}).take();
    }

  private:
    void writeWidth(int column, double characters) {
        // The file counts in 256ths of a character and with the cell's margin of five pixels, at eight a
        // character.
        constexpr int margin = 5 * 256 / 8;
        const auto width = static_cast<std::uint32_t>(std::lround(characters * 256) + margin);
        const auto place = static_cast<std::uint32_t>(column);
        constexpr std::uint32_t setByUser = 2;
        Bytes body;
        body.u16(place).u16(place).u16(width).u16(looks_.usual()).u16(setByUser).u16(0);
        out_.record(id::columnInfo, body.get());
    }

    void writeDimensions() {
        std::size_t columns = 0;
        for (const auto& row : sheet_.rows()) columns = std::max(columns, row.size());
        Bytes body;
        body.u32(0).u32(static_cast<std::uint32_t>(sheet_.rows().size())).u16(0);
        body.u16(static_cast<std::uint32_t>(columns)).u16(0);
        out_.record(id::dimensions, body.get());
    }

    void writeRow(std::size_t row) {
        constexpr std::uint32_t always = 0x0100;
        constexpr std::uint32_t hasLook = 0x0080;
        const auto look = sheet_.rowLooks().find(static_cast<int>(row));
        const bool own = look != sheet_.rowLooks().end();
        const double size = own ? look->second.fontSize : 0;
        const int height = std::max(usualRowHeight, static_cast<int>(size * 25));
        Bytes body;
        body.u16(static_cast<std::uint32_t>(row)).u16(0);
        body.u16(static_cast<std::uint32_t>(sheet_.rows()[row].size()));
        body.u16(static_cast<std::uint32_t>(height)).u16(0).u16(0);
        body.u16(always | (own ? hasLook : 0)).u16(own ? looks_.of(look->second) : looks_.usual());
        out_.record(id::row, body.get());
    }

    void writeCells(std::size_t row) {
        const auto& cells = sheet_.rows()[row];
        for (std::size_t column = 0; column < cells.size(); ++column) {
            const auto& cell = cells[column];
            const bool plain = cell.look == CellLook{};
            if (cell.text.empty() && plain) continue;
            Bytes body;
            body.u16(static_cast<std::uint32_t>(row)).u16(static_cast<std::uint32_t>(column));
            body.u16(plain ? looks_.usual() : looks_.of(cell.look));
            writeContent(cell, body);
        }
    }

    void writeContent(const Worksheet::Cell& cell, Bytes& body) {
        if (cell.text.empty()) {
            out_.record(id::blank, body.get());
            return;
        }
        if (cell.look.format == CellLook::Format::number)
            if (const auto value = wholeNumber(cell.text)) {
                out_.record(id::number, body.real(*value).get());
                return;
            }
        out_.record(id::labelSst, body.u32(texts_.add(cell.text)).get());
    }

    void writeWindow(Shown shown) {
        constexpr std::uint32_t usualParts = 0x00B6;  // lines, headings, zeros, their usual colour, outlines
        constexpr std::uint32_t selectedAndShown = 0x0600;
        constexpr std::uint32_t lineColour = 64;
        Bytes body;
        body.u16(usualParts | (shown == Shown::first ? selectedAndShown : 0)).u16(0).u16(0);
        body.u32(lineColour).u16(0).u16(0).u32(0);
        out_.record(id::window2, body.get());
    }

    void writeMerges() {
        constexpr std::size_t most = 1026;
        const auto& merges = sheet_.merges();
        for (std::size_t first = 0; first < merges.size(); first += most) {
            const std::size_t end = std::min(first + most, merges.size());
            Bytes body;
            body.u16(static_cast<std::uint32_t>(end - first));
            for (std::size_t i = first; i < end; ++i)
                for (const int edge : {merges[i].top, merges[i].bottom, merges[i].left, merges[i].right})
                    body.u16(static_cast<std::uint32_t>(edge));
            out_.record(id::mergeCells, body.get());
        }
    }

    const Worksheet& sheet_;
    Looks& looks_;
    SharedStrings& texts_;
    Bytes out_;
};

}  // namespace

std::string startRecord(std::uint16_t kind) {
    constexpr std::uint32_t version = 0x0600;
    constexpr std::uint32_t build = 0x0DBB;
    constexpr std::uint32_t year = 1996;
    Bytes body;
    body.u16(version).u16(kind).u16(build).u16(year).u32(0).u32(6);
    return Bytes().record(id::bof, body.get()).take();
}

std::string sheetStream(const Worksheet& sheet, Looks& looks, SharedStrings& texts, Shown shown) {
    return Writer(sheet, looks, texts).write(shown);
}

std::size_t sheetEnd(std::string_view stream, std::size_t start) {
    // Charts stand inside a sheet as streams of their own.
    int depth = 0;
    for (std::size_t at = start;;) {
        const Record record = recordAt(stream, at);
        if (at == start && record.id != id::bof) damaged();
        at = record.end();
        if (record.id == id::bof) ++depth;
        if (record.id == id::eof && --depth == 0) return at;
    }
}

std::uint32_t textCells(std::string_view sheet) {
    std::uint32_t count = 0;
    for (std::size_t at = 0; at < sheet.size();) {
        const Record record = recordAt(sheet, at);
        if (record.id == id::labelSst) ++count;
        at = record.end();
    }
    return count;
}

void moveSheet(std::string& sheet, std::size_t oldStart, std::ptrdiff_t shift) {
    int depth = 0;
    for (std::size_t at = 0; at < sheet.size();) {
        const Record record = recordAt(sheet, at);
        if (record.id == id::bof) ++depth;
        if (record.id == id::eof) --depth;
        const std::size_t body = at + headerSize;
        const std::size_t length = record.body.size();
        at = record.end();
        if (record.id != id::index || depth != 1) continue;
        // Where the column widths stand, and each block of rows.
        constexpr std::size_t firstPlace = 12;
        for (std::size_t place = firstPlace; place + 4 <= length; place += 4) {
            const std::size_t named = longAt(sheet, body + place);
            if (named < oldStart || named >= oldStart + sheet.size()) continue;
            putLong(sheet, body + place,
                    static_cast<std::uint32_t>(static_cast<std::ptrdiff_t>(named) + shift));
        }
    }
}

}  // namespace desk::xls
