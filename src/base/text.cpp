#include "base/text.h"

#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <memory>

namespace desk {

std::string_view codeBeforeBlank(std::string_view entry) {
    return entry.substr(0, entry.find(' '));
}

std::string_view nameAfterBlank(std::string_view entry) {
    const auto blank = entry.find(' ');
    return blank == std::string_view::npos ? std::string_view{} : entry.substr(blank + 1);
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string firstLine(std::string_view text) {
    const auto start = text.find_first_not_of("\r\n");
    if (start == std::string_view::npos) return {};
    text = text.substr(start);
    std::string line(text.substr(0, text.find_first_of("\r\n")));
    std::replace(line.begin(), line.end(), '\t', ' ');
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    if (text.empty()) return parts;
    for (std::size_t start = 0;;) {
        const auto end = text.find(separator, start);
        parts.emplace_back(text.substr(start, end - start));
        if (end == std::string_view::npos) return parts;
        start = end + 1;
    }
}

std::string join(const std::vector<std::string>& parts, std::string_view separator) {
    std::string joined;
    for (const auto& part : parts) {
        if (&part != &parts.front()) joined += separator;
        joined += part;
    }
    return joined;
}

std::string_view without(std::string_view text, std::size_t count) {
    return text.size() <= count ? std::string_view{} : text.substr(count);
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (const char byte : text) count += (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    return count;
}

std::u16string toUtf16(std::string_view text) {
    const auto wide =
        icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
    return {wide.getBuffer(), static_cast<std::size_t>(wide.length())};
}

std::string toUtf8(std::u16string_view text) {
    std::string bytes;
    icu::UnicodeString(text.data(), static_cast<int32_t>(text.size())).toUTF8String(bytes);
    return bytes;
}

std::u32string toUtf32(std::string_view text) {
    std::u32string signs;
    signs.reserve(text.size());
    const auto length = static_cast<int32_t>(text.size());
    for (int32_t at = 0; at < length;) {
        UChar32 sign = 0;
        U8_NEXT_OR_FFFD(text.data(), at, length, sign);
        signs.push_back(static_cast<char32_t>(sign));
    }
    return signs;
}

std::string toGbk(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, decltype(&ucnv_close)> gbk(ucnv_open("GBK", &status), &ucnv_close);
    ucnv_setSubstChars(gbk.get(), "?", 1, &status);
    std::string bytes(text.size() * 2 + 4, '\0');
    const auto length =
        ucnv_fromAlgorithmic(gbk.get(), UCNV_UTF8, bytes.data(), static_cast<int32_t>(bytes.size()),
                             text.data(), static_cast<int32_t>(text.size()), &status);
    if (U_FAILURE(status)) return {};
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

}  // namespace desk
