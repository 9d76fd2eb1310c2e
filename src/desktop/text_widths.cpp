#include "desktop/text_widths.h"

#include "desktop/convert.h"

namespace desk::desktop {

namespace {

constexpr double unknown = -1;

bool isHan(char16_t sign) {
    return sign >= u'\u4E00' && sign <= u'\u9FFF';
}

}  // namespace

double TextWidths::of(const QFont& font, std::string_view measured) {
    if (font != font_ || widths_.empty()) {
        font_ = font;
        metrics_ = QFontMetricsF(font);
        widths_.assign(0x10000, unknown);
        wholes_.clear();
    }
    const double added = addedUp(measured);
    return twips(added >= 0 ? added : whole(measured));
}

double TextWidths::whole(std::string_view measured) {
    constexpr std::size_t remembered = 5000;
    if (wholes_.size() >= remembered) wholes_.clear();
    const auto [place, isNew] = wholes_.try_emplace(std::string(measured));
    if (isNew) place->second = metrics_.horizontalAdvance(text(measured));
    return place->second;
}

double TextWidths::addedUp(std::string_view measured) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(measured[at]); };
    double width = 0;
    for (std::size_t i = 0; i < measured.size();) {
        if (byte(i) >= '0' && byte(i) <= '9') {
            width += widthOf(byte(i++));
            continue;
        }
        // All Han characters of the basic plane take three bytes.
        if ((byte(i) & 0xF0U) != 0xE0U || i + 2 >= measured.size()) return unknown;
        const auto sign = static_cast<char16_t>((byte(i) & 0x0FU) << 12U | (byte(i + 1) & 0x3FU) << 6U |
                                                (byte(i + 2) & 0x3FU));
        if (!isHan(sign)) return unknown;
        width += widthOf(sign);
        i += 3;
    }
    return width;
}

double TextWidths::widthOf(char16_t sign) {
    double& width = widths_[sign];
    if (width < 0) width = metrics_.horizontalAdvance(QChar(sign));
    return width;
}

}  // namespace desk::desktop
