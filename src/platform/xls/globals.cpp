#include "platform/xls/globals.h"

#include <algorithm>

#include "base/failure.h"
#include "platform/xls/file_password.h"
#include "platform/xls/record.h"

namespace desk::xls {

namespace {
constexpr std::uint16_t version8 = 0x0600;
constexpr std::uint16_t globalsKind = 0x0005;

[[noreturn]] void refuseEncrypted(std::string_view filePass) {
    // A book whose sheets are protected is encrypted too, by a password that nobody is asked for.
    throw RuntimeFailure(failure::spreadsheet,
                         hasDefaultPassword(filePass)
                             ? "工作簿受保护，不能写入。请在电子表格程序中撤消工作簿保护（“审阅”"
                               "→“保护工作簿”），保存后再输出"
                             : "文件已加密，不能写入");
}

}  // namespace

Globals::Globals(std::string_view stream) {
    const Record start = recordAt(stream, 0);
    if (start.id != id::bof || shortAt(start.body, 0) != version8)
        throw RuntimeFailure(failure::spreadsheet, "文件不是 Excel 97-2003 格式的工作簿");
    if (shortAt(start.body, 2) != globalsKind) damaged();
    for (std::size_t at = 0;;) {
        const Record record = recordAt(stream, at);
        if (record.id == id::filePass) refuseEncrypted(record.body);
        if (record.id == id::bof && at > 0) damaged();
        items.push_back({record.id, std::string(record.body)});
        at = record.end();
        if (record.id != id::eof) continue;
        oldSize_ = at;
        break;
    }
    if (count(id::font) == 0 || count(id::xf) == 0 || count(id::boundSheet) == 0) damaged();
}

std::size_t Globals::newSize() const {
    std::size_t size = 0;
    for (const Item& item : items) size += headerSize + item.body.size();
    return size;
}

std::string Globals::takeBytes() {
    Bytes all;
    all.reserve(newSize());
    for (Item& item : items) {
        all.record(item.id, item.body);
        item.body = {};
    }
    items.clear();
    return all.take();
}

std::size_t Globals::count(std::uint16_t id) const {
    return static_cast<std::size_t>(
        std::count_if(items.begin(), items.end(), [id](const Item& item) { return item.id == id; }));
}

std::size_t Globals::numberOf(std::uint16_t id, std::string_view body) const {
    std::size_t number = 0;
    for (const Item& item : items) {
        if (item.id != id) continue;
        if (item.body == body) break;
        ++number;
    }
    return number;
}

std::size_t Globals::lastOf(std::uint16_t id) const {
    for (std::size_t i = items.size(); i-- > 0;)
        if (items[i].id == id) return i;
    return npos;
}

void Globals::insertBehind(std::initializer_list<std::uint16_t> kinds, Item item) {
    std::size_t place = items.size() - 1;
    for (const std::uint16_t kind : kinds)
        if (const std::size_t found = lastOf(kind); found != npos) {
            place = found + 1;
            break;
        }
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(place), std::move(item));
}

}  // namespace desk::xls
