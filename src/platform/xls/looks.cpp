#include "platform/xls/looks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/failure.h"
#include "platform/xls/record.h"

namespace desk::xls {

namespace {

constexpr std::size_t mostLooks = 4000;
constexpr std::uint16_t textFormat = 49;  ///< "@", built in
constexpr std::uint16_t lastBuiltInFormat = 163;
constexpr std::u16string_view twoPlaces = u"0.00_ ";

std::uint32_t acrossOf(CellLook::Across across) {
    return static_cast<std::uint32_t>(across);  // general, left, centre, right in the file's own order
}

std::uint32_t downOf(CellLook::Down down) {
    switch (down) {
        case CellLook::Down::top:
            return 0;
        case CellLook::Down::centre:
            return 1;
        case CellLook::Down::distributed:
            return 4;
        case CellLook::Down::bottom:
            break;
    }
    return 2;
}

/// The sum that newer programs keep to see whether an older one has changed the format records.
std::uint32_t checkSum(const Globals& globals) {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i << 24;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 0x80000000U) != 0 ? value << 1 ^ 0xAFU : value << 1;
        table[i] = value & 0xFFFFU;
    }
    std::uint32_t sum = 0;
    for (const auto& item : globals.items)
        if (item.id == id::xf)
            for (const char c : item.body) sum = sum << 8 ^ table[sum >> 24 ^ static_cast<std::uint8_t>(c)];
    return sum;
}

}  // namespace

std::uint16_t Looks::usual() const {
    constexpr std::size_t firstCellFormat = 15;
    return static_cast<std::uint16_t>(std::min(firstCellFormat, globals_.count(id::xf) - 1));
}

std::uint16_t Looks::of(const CellLook& look) {
    if (const auto found = known_.find(look); found != known_.end()) return found->second;
    const std::uint16_t font = fontOf(look.fontSize);
    const std::uint16_t format = numberFormatOf(look.format);
    constexpr std::uint32_t locked = 1;
    constexpr std::uint32_t ownFormatFontAlignmentBorder = 0x3C;
    constexpr std::uint32_t automatic = 64;
    constexpr std::uint32_t noPattern = 0x20C0;
    const std::uint32_t thin = look.bordered ? 1 : 0;
    const std::uint32_t colour = look.bordered ? automatic : 0;
    Bytes body;
    body.u16(font).u16(format).u16(locked);
    body.u8(acrossOf(look.across) | downOf(look.down) << 4).u8(0).u8(0).u8(ownFormatFontAlignmentBorder);
    body.u32(thin | thin << 4 | thin << 8 | thin << 12 | colour << 16 | colour << 23);
    body.u32(colour | colour << 7).u16(noPattern);
    const std::size_t number = globals_.numberOf(id::xf, body.get());
    if (number >= mostLooks)
        throw RuntimeFailure(failure::spreadsheet, "工作簿中的单元格格式太多，不能再增加");
    if (number == globals_.count(id::xf)) globals_.insertBehind({id::xf}, {id::xf, body.take()});
    return known_[look] = static_cast<std::uint16_t>(number);
}

std::uint16_t Looks::fontOf(double size) {
    const int height = static_cast<int>(std::lround(size * 20));
    if (height == 0) return 0;
    if (const auto found = fonts_.find(height); found != fonts_.end()) return found->second;
    // A font of the workbook's own kind. No font has the number 4.
    const auto usual = std::find_if(globals_.items.begin(), globals_.items.end(),
                                    [](const auto& item) { return item.id == id::font; });
    std::string body = usual->body;
    if (body.size() < 16) damaged();
    putShort(body, 0, static_cast<std::uint32_t>(height));
    const std::size_t number = globals_.numberOf(id::font, body);
    if (number == globals_.count(id::font)) globals_.insertBehind({id::font}, {id::font, std::move(body)});
    return fonts_[height] = static_cast<std::uint16_t>(number < 4 ? number : number + 1);
}

std::uint16_t Looks::numberFormatOf(CellLook::Format format) {
    if (format == CellLook::Format::general) return 0;
    if (format == CellLook::Format::text) return textFormat;
    Bytes wanted;
    wanted.u16(static_cast<std::uint32_t>(twoPlaces.size())).characters(twoPlaces);
    std::uint16_t highest = lastBuiltInFormat;
    for (const auto& item : globals_.items) {
        if (item.id != id::format) continue;
        const std::uint16_t number = shortAt(item.body, 0);
        if (std::string_view(item.body).substr(2) == wanted.get()) return number;
        highest = std::max(highest, number);
    }
    if (highest == 0xFFFF) damaged();
    Bytes body;
    body.u16(highest + 1U).raw(wanted.get());
    globals_.insertBehind({id::format, id::font}, {id::format, body.take()});
    return static_cast<std::uint16_t>(highest + 1);
}

void Looks::finish() {
    for (auto& item : globals_.items) {
        constexpr std::size_t countAt = 14;
        constexpr std::size_t sumAt = 16;
        if (item.id != id::xfCrc || item.body.size() < sumAt + 4) continue;
        putShort(item.body, countAt, static_cast<std::uint32_t>(globals_.count(id::xf)));
        putLong(item.body, sumAt, checkSum(globals_));
    }
}

}  // namespace desk::xls
