#include "platform/xls/sheet_stream.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/number.h"
#include "platform/xls/record.h"

namespace desk::xls {

namespace {

constexpr std::uint32_t usualRowHeight = 285;  ///< twips, as of a font of 12 points

/// Column widths as the file keeps them: those of the frame, with those that the sheet sets cut out of them.
class Widths {
  public:
    Widths(const SheetFrame& frame, const Worksheet& sheet, std::uint16_t usualLook) {
        for (const auto& old : frame.columns) keepOld(old, sheet.columnWidths());
        for (const auto& [column, width] : sheet.columnWidths()) set(frame, column, width, usualLook);
        std::sort(all_.begin(), all_.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    }

    void write(Bytes& out) const {
        for (const auto& columns : all_) {
            Bytes body;
            body.shorts(
                {static_cast<std::uint32_t>(columns.first), static_cast<std::uint32_t>(columns.last)});
            out.record(id::columnInfo, body.raw(columns.rest).get());
        }
    }

  private:
    void keepOld(const SheetFrame::Columns& old, const std::map<int, double>& set) {
        int first = old.first;
        for (auto next = set.lower_bound(first); next != set.end() && next->first <= old.last; ++next) {
            if (next->first > first) all_.push_back({first, next->first - 1, old.rest});
            first = next->first + 1;
        }
        if (first <= old.last) all_.push_back({first, old.last, old.rest});
    }

    void set(const SheetFrame& frame, int column, double characters, std::uint16_t usualLook) {
        // The file counts in 256ths of a character and with the cell's margin of five pixels, at eight a
        // character.
        constexpr int margin = 5 * 256 / 8;
        constexpr std::uint32_t setByUser = 2;
        constexpr std::uint32_t hidden = 1;
        const auto width = static_cast<std::uint32_t>(std::lround(characters * 256) + margin);
        const auto old = std::find_if(frame.columns.begin(), frame.columns.end(), [column](const auto& each) {
            return each.first <= column && column <= each.last;
        });
        const bool has = old != frame.columns.end();
        const std::uint32_t look = has ? shortAt(old->rest, 2) : usualLook;
        const std::uint32_t flags = has ? shortAt(old->rest, 4) & ~hidden : 0;
        all_.push_back({column, column, Bytes().shorts({width, look, flags | setByUser, 0}).take()});
    }

    std::vector<SheetFrame::Columns> all_;
};

class Writer {
  public:
    Writer(const Worksheet& sheet, Looks& looks, SharedStrings& texts)
        : sheet_(sheet),
          looks_(looks),
          texts_(texts),
          own_(sheet.rows().size()),
          table_(sheet.table()),
          usual_(looks.usual()) {
        for (const CellLook& look : table_.columns) tableLooks_.push_back(lookOf(look));
    }

    std::string write(const SheetFrame& frame) {
        // Most of a sheet are the cells of its table.
        constexpr std::size_t longestCell = 18;
        constexpr std::size_t rest = 65536;
        out_.reserve(static_cast<std::size_t>(table_.rows) * (table_.columns.size() + 2) * longestCell +
                     rest);
        out_.raw(frame.head);
        Widths(frame, sheet_, usual_).write(out_);
        out_.raw(frame.beforeCells);
        writeDimensions();
        // Rows come in blocks of 32: first what the rows are, then what stands in them.
        constexpr std::size_t block = 32;
        for (std::size_t first = 0; first < rowCount(); first += block) {
            const std::size_t end = std::min(first + block, rowCount());
            for (std::size_t row = first; row < end; ++row) writeRow(row);
            for (std::size_t row = first; row < end; ++row)
                if (row < own_)
                    writeOwnCells(row);
                else
                    writeTableCells(row);
        }
        out_.raw(frame.behindCells);
        writeMerges();
        return out_.raw(frame.tail).record(id::eof, {}).take();
    }

  private:
    std::size_t rowCount() const { return own_ + static_cast<std::size_t>(table_.rows); }
    std::uint32_t lookOf(const CellLook& look) { return look == CellLook{} ? usual_ : looks_.of(look); }
    std::size_t cellsIn(std::size_t row) const {
        return row < own_ ? sheet_.rows()[row].size() : table_.columns.size();
    }

    void writeDimensions() {
        std::size_t columns = table_.rows > 0 ? table_.columns.size() : 0;
        for (const auto& row : sheet_.rows()) columns = std::max(columns, row.size());
        Bytes body;
        body.u32(0).u32(static_cast<std::uint32_t>(rowCount())).u16(0);
        body.u16(static_cast<std::uint32_t>(columns)).u16(0);
        out_.record(id::dimensions, body.get());
    }

    void writeRow(std::size_t row) {
        constexpr std::uint32_t always = 0x0100;
        constexpr std::uint32_t hasLook = 0x0080;
        constexpr std::uint32_t size = 16;
        std::uint32_t height = usualRowHeight;
        std::uint32_t flags = always;
        std::uint32_t look = usual_;
        if (const auto own = sheet_.rowLooks().find(static_cast<int>(row)); own != sheet_.rowLooks().end()) {
            height = std::max(height, static_cast<std::uint32_t>(own->second.fontSize * 25));
            flags |= hasLook;
            look = looks_.of(own->second);
        }
        out_.shorts({id::row, size, static_cast<std::uint32_t>(row), 0,
                     static_cast<std::uint32_t>(cellsIn(row)), height, 0, 0, flags, look});
    }

    void writeOwnCells(std::size_t row) {
        const auto& cells = sheet_.rows()[row];
        for (std::size_t column = 0; column < cells.size(); ++column) {
            const auto& cell = cells[column];
            if (cell.text.empty() && cell.look == CellLook{}) continue;
            writeCell(row, column, lookOf(cell.look), cell.look.format, cell.text);
        }
    }

    void writeTableCells(std::size_t row) {
        const int line = static_cast<int>(row - own_);
        for (std::size_t column = 0; column < table_.columns.size(); ++column)
            writeCell(row, column, tableLooks_[column], table_.columns[column].format,
                      table_.text(line, static_cast<int>(column)));
        if (table_.reached) table_.reached(line);
    }

    void writeCell(std::size_t row, std::size_t column, std::uint32_t look, CellLook::Format format,
                   std::string_view text) {
        constexpr std::uint32_t placeSize = 6;
        const auto line = static_cast<std::uint32_t>(row);
        const auto place = static_cast<std::uint32_t>(column);
        if (text.empty()) {
            out_.shorts({id::blank, placeSize, line, place, look});
            return;
        }
        if (format == CellLook::Format::number)
            if (const auto value = wholeNumber(text)) {
                out_.shorts({id::number, placeSize + 8, line, place, look}).real(*value);
                return;
            }
        const std::uint32_t number = texts_.add(text);
        out_.shorts({id::labelSst, placeSize + 4, line, place, look, number, number >> 16});
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
    std::size_t own_;  ///< rows that the sheet holds itself, before its table
    const Worksheet::Table& table_;
    std::uint16_t usual_;
    std::vector<std::uint32_t> tableLooks_;
    Bytes out_;
};

}  // namespace

std::string sheetStream(const Worksheet& sheet, const SheetFrame& frame, Looks& looks, SharedStrings& texts) {
    return Writer(sheet, looks, texts).write(frame);
}

SheetSurvey surveySheet(std::string_view stream, std::size_t start) {
    // Charts stand inside a sheet as streams of their own.
    constexpr std::size_t numberAt = 6;
    SheetSurvey survey;
    int depth = 0;
    for (std::size_t at = start;;) {
        const Record record = recordAt(stream, at);
        if (at == start && record.id != id::bof) damaged();
        at = record.end();
        if (record.id == id::bof) ++depth;
        if (record.id == id::labelSst) {
            const std::uint32_t number = longAt(record.body, numberAt);
            if (number == UINT32_MAX) damaged();
            ++survey.textCells;
            survey.textsNamed = std::max(survey.textsNamed, number + 1);
        }
        if (record.id != id::eof || --depth > 0) continue;
        survey.end = at;
        return survey;
    }
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
