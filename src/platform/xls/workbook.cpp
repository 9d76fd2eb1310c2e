#include "platform/xls/workbook.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <optional>

#include "base/failure.h"
#include "base/text.h"
#include "platform/xls/globals.h"
#include "platform/xls/looks.h"
#include "platform/xls/record.h"
#include "platform/xls/shared_strings.h"
#include "platform/xls/sheet_stream.h"

namespace desk::xls {

namespace {

constexpr std::uint8_t worksheetKind = 0;

[[noreturn]] void refuse(const char* why) {
    throw RuntimeFailure(failure::spreadsheet, why);
}

std::u16string folded(std::u16string_view name) {
    std::u16string lower;
    for (const char16_t c : name) lower.push_back(static_cast<char16_t>(u_foldCase(c, U_FOLD_CASE_DEFAULT)));
    return lower;
}

std::u16string checkedName(const std::string& utf8) {
    const std::u16string name = toUtf16(utf8);
    if (name.empty() || name.size() > 31) refuse("工作表名称必须为 1 到 31 个字符");
    if (name.find_first_of(u"\\/?*[]:") != std::u16string::npos || name.front() == u'\'' ||
        name.back() == u'\'')
        refuse("工作表名称不能含有 \\ / ? * [ ] :，也不能以单引号开头或结尾");
    return name;
}

/// A sheet as the globals list it.
struct Listed {
    std::size_t item;   ///< of the globals
    std::size_t start;  ///< in the stream that was read
    SheetSurvey survey;
    std::uint8_t kind;
    std::u16string name;

    std::size_t end() const { return survey.end; }
    std::size_t size() const { return survey.end - start; }
};

std::u16string nameIn(std::string_view body) {
    constexpr std::size_t lengthAt = 6;
    const std::size_t length = byteAt(body, lengthAt);
    const bool wide = (byteAt(body, lengthAt + 1) & 1U) != 0;
    std::u16string name;
    for (std::size_t i = 0; i < length; ++i)
        name.push_back(wide ? shortAt(body, lengthAt + 2 + 2 * i) : byteAt(body, lengthAt + 2 + i));
    return name;
}

std::vector<Listed> sheetsOf(const Globals& globals, std::string_view stream) {
    std::vector<Listed> sheets;
    for (std::size_t i = 0; i < globals.items.size(); ++i) {
        if (globals.items[i].id != id::boundSheet) continue;
        const std::string_view body = globals.items[i].body;
        const std::size_t start = longAt(body, 0);
        if (start < globals.oldSize()) damaged();
        sheets.push_back({i, start, surveySheet(stream, start), byteAt(body, 5), nameIn(body)});
    }
    auto sorted = sheets;
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.start < b.start; });
    for (std::size_t i = 1; i < sorted.size(); ++i)
        if (sorted[i].start < sorted[i - 1].end()) damaged();
    return sheets;
}

/// A name list entry of a sheet that is not yet placed.
std::string boundSheetBody(std::u16string_view name) {
    Bytes body;
    body.u32(0).u16(worksheetKind).u8(static_cast<std::uint32_t>(name.size())).characters(name);
    return body.take();
}

/// What else the globals know about the number of sheets.
void countOneMore(Globals& globals) {
    for (auto& item : globals.items) {
        if (item.id == id::tabId) {
            std::uint16_t highest = 0;
            for (std::size_t at = 0; at + 2 <= item.body.size(); at += 2)
                highest = std::max(highest, shortAt(item.body, at));
            item.body += Bytes().u16(highest + 1U).get();
        }
        constexpr std::uint16_t ownWorkbook = 0x0401;
        if (item.id == id::supBook && item.body.size() == 4 && shortAt(item.body, 2) == ownWorkbook)
            putShort(item.body, 0, shortAt(item.body, 0) + 1U);
    }
}

/// Puts a sheet into a workbook that has been taken apart.
class Assembly {
  public:
    Assembly(std::string_view stream, const Worksheet& sheet)
        : stream_(stream), sheet_(sheet), name_(checkedName(sheet.name())), globals_(stream) {}

    std::vector<std::string> assemble() {
        sheets_ = sheetsOf(globals_, stream_);
        checkRest();
        findReplaced();
        if (!replaced_) list();
        showWindow();
        Looks looks(globals_);
        std::string added = addedSheet(looks);
        std::string kept = keptSheets();
        place(globals_.newSize() + kept.size());
        std::vector<std::string> parts;
        parts.push_back(globals_.takeBytes());
        parts.push_back(std::move(kept));
        parts.push_back(std::move(added));
        return parts;
    }

  private:
    /// Some programs fill the stream up with zeros; others read no sheet behind them. Nor do they behind half
    /// a record, which would swallow the beginning of the sheet.
    void checkRest() {
        std::size_t end = 0;
        for (const Listed& sheet : sheets_) end = std::max(end, sheet.end());
        if (stream_.find_first_not_of('\0', end) == std::string_view::npos) stream_ = stream_.substr(0, end);
        while (end < stream_.size()) end = recordAt(stream_, end).end();
    }

    void showWindow() {
        constexpr std::size_t flagsAt = 8;
        constexpr std::uint32_t hidden = 1;
        for (auto& item : globals_.items) {
            if (item.id != id::window1) continue;
            putShort(item.body, flagsAt, shortAt(item.body, flagsAt) & ~hidden);
            return;
        }
    }

    /// The new sheet, all texts and looks of the workbook being complete then.
    std::string addedSheet(Looks& looks) {
        SharedStrings texts(globals_);
        for (std::size_t i = 0; i < sheets_.size(); ++i)
            if (i == replaced_)
                texts.forgetCells(sheets_[i].survey.textCells);
            else
                texts.fillUpTo(sheets_[i].survey.textsNamed);
        const SheetFrame frame = replaced_ ? frameOf(bytesOf(sheets_[*replaced_]))
                                           : newFrame(globals_.count(id::window1), Shown::behind);
        std::string added = sheetStream(sheet_, frame, looks, texts);
        looks.finish();
        texts.finish();
        return added;
    }

    std::string_view bytesOf(const Listed& sheet) const { return stream_.substr(sheet.start, sheet.size()); }

    void findReplaced() {
        for (std::size_t i = 0; i < sheets_.size(); ++i) {
            if (folded(sheets_[i].name) != folded(name_)) continue;
            if (sheets_[i].kind != worksheetKind) refuse("同名的表不是工作表，不能写入");
            replaced_ = i;
        }
    }

    void list() {
        globals_.insertBehind({id::boundSheet}, {id::boundSheet, boundSheetBody(name_)});
        countOneMore(globals_);
    }

    /// How far bytes at `oldPlace` move: the globals have grown, and what is replaced goes.
    std::ptrdiff_t shiftAt(std::size_t oldPlace) const {
        auto shift =
            static_cast<std::ptrdiff_t>(globals_.newSize()) - static_cast<std::ptrdiff_t>(globals_.oldSize());
        if (replaced_ && sheets_[*replaced_].start < oldPlace)
            shift -= static_cast<std::ptrdiff_t>(sheets_[*replaced_].size());
        return shift;
    }

    /// All behind the globals but what is replaced, each sheet at its new place.
    std::string keptSheets() const {
        std::string kept(stream_.substr(globals_.oldSize()));
        for (std::size_t i = 0; i < sheets_.size(); ++i) {
            if (i == replaced_) continue;
            const Listed& each = sheets_[i];
            std::string moved(bytesOf(each));
            moveSheet(moved, each.start, shiftAt(each.start));
            kept.replace(each.start - globals_.oldSize(), moved.size(), moved);
        }
        if (replaced_) kept.erase(sheets_[*replaced_].start - globals_.oldSize(), sheets_[*replaced_].size());
        return kept;
    }

    /// Writes into the list where the sheets lie.
    void place(std::size_t startOfAdded) {
        std::size_t listed = 0;
        for (auto& item : globals_.items) {
            if (item.id != id::boundSheet) continue;
            const std::size_t i = listed++;
            const bool added = i == replaced_ || i >= sheets_.size();
            if (added) item.body[4] = 0;  // not hidden
            const std::size_t at =
                added ? startOfAdded
                      : static_cast<std::size_t>(static_cast<std::ptrdiff_t>(sheets_[i].start) +
                                                 shiftAt(sheets_[i].start));
            putLong(item.body, 0, static_cast<std::uint32_t>(at));
        }
    }

    std::string_view stream_;
    const Worksheet& sheet_;
    std::u16string name_;
    Globals globals_;
    std::vector<Listed> sheets_;
    std::optional<std::size_t> replaced_;
};

void addFontsAndLooks(Bytes& out) {
    constexpr std::uint32_t twelvePoints = 240;
    constexpr std::uint32_t automaticColour = 0x7FFF;
    constexpr std::uint32_t normalWeight = 400;
    constexpr std::uint32_t gbCharacters = 134;
    constexpr std::u16string_view name = u"宋体";
    Bytes font;
    font.u16(twelvePoints).u16(0).u16(automaticColour).u16(normalWeight).u16(0);
    font.u8(0).u8(0).u8(gbCharacters).u8(0).u8(name.size()).characters(name);
    for (int i = 0; i < 4; ++i) out.record(id::font, font.get());

    constexpr std::uint32_t lockedStyle = 0xFFF5;
    constexpr std::uint32_t lockedCell = 0x0001;
    constexpr int styleLooks = 15;
    for (int i = 0; i <= styleLooks; ++i) {
        Bytes look;
        look.u16(0).u16(0).u16(i < styleLooks ? lockedStyle : lockedCell);
        look.u8(0x20).u8(0).u8(0).u8(i > 0 && i < styleLooks ? 0xF4 : 0).u32(0).u32(0).u16(0x20C0);
        out.record(id::xf, look.get());
    }
    constexpr std::uint32_t builtIn = 0x8000;
    out.record(id::style, Bytes().u16(builtIn).u8(0).u8(0xFF).get());
}

}  // namespace

std::string emptyWorkbook() {
    constexpr std::uint16_t globalsKind = 0x0005;
    constexpr std::uint32_t utf16 = 1200;
    Bytes out;
    out.raw(startRecord(globalsKind)).record(id::codePage, Bytes().u16(utf16).get());
    constexpr std::uint32_t scrollBarsAndTabs = 0x38;
    Bytes window;
    window.u16(0).u16(0).u16(16000).u16(9000).u16(scrollBarsAndTabs).u16(0).u16(0).u16(1).u16(600);
    out.record(id::window1, window.get());
    addFontsAndLooks(out);
    const std::string listed = boundSheetBody(u"Sheet1");
    const std::size_t end = out.size() + headerSize + listed.size() + headerSize;
    std::string placed = listed;
    putLong(placed, 0, static_cast<std::uint32_t>(end));
    out.record(id::boundSheet, placed).record(id::eof, {});
    Globals globals(out.get());
    Looks looks(globals);
    SharedStrings texts(globals);
    return out.take() + sheetStream(Worksheet("Sheet1"), newFrame(1, Shown::first), looks, texts);
}

std::vector<std::string> withSheet(std::string_view workbook, const Worksheet& sheet) {
    return Assembly(workbook, sheet).assemble();
}

}  // namespace desk::xls
