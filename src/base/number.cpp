#include "base/number.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <limits>

#include "base/failure.h"
#include "base/text.h"

namespace desk {

namespace {

double numberOrFail(std::string_view text) {
    const auto number = wholeNumber(text);
    if (!number) throw RuntimeFailure(failure::typeMismatch, "类型不匹配");
    return *number;
}

template <class Integer>
Integer fitted(double value) {
    const double rounded = roundHalfEven(value);
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        throw RuntimeFailure(failure::overflow, "溢出");
    return static_cast<Integer>(rounded);
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The head of `text` that reads as a decimal number, blanks taken out.
std::string numericHead(std::string_view text) {
    std::string head;
    bool point = false;
    bool exponent = false;
    for (const char c : text) {
        if (c == ' ' || c == '\t' || c == '\n') continue;
        const bool signPlace = head.empty() || head.back() == 'e';
        if ((c == '-' || c == '+') && signPlace) {
            if (c == '-' || !head.empty()) head += c;
        } else if (c == '.' && !point && !exponent) {
            point = true;
            head += c;
        } else if ((c == 'e' || c == 'E' || c == 'd' || c == 'D') && !exponent && !head.empty() &&
                   isDigit(head.back())) {
            exponent = true;
            head += 'e';
        } else if (isDigit(c)) {
            head += c;
        } else {
            break;
        }
    }
    return head;
}

}  // namespace

double val(std::string_view text) {
    const std::string head = numericHead(text);
    double value = 0;
    const auto end = std::from_chars(head.data(), head.data() + head.size(), value);
    return end.ec == std::errc{} ? value : 0;
}

std::optional<double> wholeNumber(std::string_view text) {
    auto rest = trimmed(text);
    if (!rest.empty() && rest.front() == '+') rest.remove_prefix(1);
    double value = 0;
    const auto end = std::from_chars(rest.data(), rest.data() + rest.size(), value);
    if (rest.empty() || end.ec != std::errc{} || end.ptr != rest.data() + rest.size() ||
        !std::isfinite(value))
        return std::nullopt;
    return value;
}

double roundHalfEven(double value) {
    const double floor = std::floor(value);
    const double rest = value - floor;
    if (rest < 0.5) return floor;
    if (rest > 0.5) return floor + 1;
    return std::fmod(floor, 2) == 0 ? floor : floor + 1;
}

std::int16_t toInt16(double value) {
    return fitted<std::int16_t>(value);
}
std::int16_t toInt16(std::string_view text) {
    return fitted<std::int16_t>(numberOrFail(text));
}
std::int32_t toInt32(double value) {
    return fitted<std::int32_t>(value);
}
std::int32_t toInt32(std::string_view text) {
    return fitted<std::int32_t>(numberOrFail(text));
}

std::string numberText(double value) {
    return value == 0 ? "0" : fmt::format("{:.15g}", value);
}

std::string formatNumber(double value, std::string_view picture) {
    const auto point = picture.find('.');
    const auto decimals = point == std::string_view::npos ? 0 : picture.size() - point - 1;
    const auto whole = point == std::string_view::npos ? picture.size() : point;
    const double scale = std::pow(10.0, static_cast<double>(decimals));
    // A value such as 1.005 is held a hair below itself; what a person sees as a half shall count as one.
    const double scaled = std::abs(value) * scale;
    const double rounded = std::floor(scaled + 0.5 + scaled * std::numeric_limits<double>::epsilon()) / scale;
    const bool negative = value < 0 && rounded != 0;
    const auto width = whole + (decimals != 0 ? decimals + 1 : 0);
    return (negative ? "-" : "") + fmt::format("{:0{}.{}f}", rounded, width, decimals);
}

}  // namespace desk
