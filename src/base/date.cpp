#include "base/date.h"

#include <fmt/format.h>

#include <array>
#include <cctype>

#include "base/text.h"

namespace desk {

namespace {

/// Takes 1 to `most` digits off the head of `text`.
std::optional<int> takeNumber(std::string_view& text, std::size_t most) {
    std::size_t count = 0;
    int value = 0;
    while (count < text.size() && count < most && text[count] >= '0' && text[count] <= '9')
        value = value * 10 + (text[count++] - '0');
    if (count == 0) return std::nullopt;
    text.remove_prefix(count);
    return value;
}

bool takeChar(std::string_view& text, char c) {
    if (text.empty() || text.front() != c) return false;
    text.remove_prefix(1);
    return true;
}

bool startsWithEightDigits(std::string_view text) {
    return text.size() >= 8 && text.substr(0, 8).find_first_not_of("0123456789") == std::string_view::npos;
}

std::optional<std::chrono::year_month_day> takeDay(std::string_view& text) {
    std::optional<int> year;
    std::optional<int> month;
    std::optional<int> day;
    if (startsWithEightDigits(text)) {
        year = takeNumber(text, 4);
        month = takeNumber(text, 2);
        day = takeNumber(text, 2);
    } else {
        year = takeNumber(text, 4);
        const char separator = text.empty() ? '\0' : text.front();
        if (separator != '-' && separator != '/') return std::nullopt;
        takeChar(text, separator);
        month = takeNumber(text, 2);
        if (!takeChar(text, separator)) return std::nullopt;
        day = takeNumber(text, 2);
    }
    if (!year || !month || !day || *year < 100) return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(*year),
                                           std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day)));
    return date.ok() ? std::optional(date) : std::nullopt;
}

std::optional<std::chrono::seconds> takeTime(std::string_view& text) {
    const auto hour = takeNumber(text, 2);
    if (!hour || !takeChar(text, ':')) return std::nullopt;
    const auto minute = takeNumber(text, 2);
    std::optional<int> second = 0;
    if (takeChar(text, ':')) second = takeNumber(text, 2);
    // A server's stamp may carry thousandths; seconds are all that the system keeps.
    if (takeChar(text, '.')) takeNumber(text, 7);
    if (!minute || !second || *hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
    return std::chrono::hours(*hour) + std::chrono::minutes(*minute) + std::chrono::seconds(*second);
}

}  // namespace

DateTime DateTime::plusDays(int count) const {
    return {std::chrono::year_month_day(std::chrono::sys_days(day) + std::chrono::days(count)), time};
}

std::optional<DateTime> parseDate(std::string_view text) {
    auto rest = trimmed(text);
    const auto day = takeDay(rest);
    if (!day) return std::nullopt;
    rest = trimmed(rest);
    if (rest.empty()) return DateTime(*day);
    const auto time = takeTime(rest);
    if (!time || !rest.empty()) return std::nullopt;
    return DateTime(*day, *time);
}

std::string formatDate(const DateTime& moment, std::string_view picture) {
    const int year = static_cast<int>(moment.day.year());
    const unsigned month = static_cast<unsigned>(moment.day.month());
    const unsigned day = static_cast<unsigned>(moment.day.day());
    const auto hours = moment.time.count() / 3600;
    const auto minutes = moment.time.count() / 60 % 60;

    std::string text;
    bool afterHours = false;
    for (std::size_t i = 0; i < picture.size();) {
        const char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(picture[i])));
        std::size_t run = 1;
        while (i + run < picture.size() && picture[i + run] == picture[i]) ++run;
        const std::size_t width = run >= 2 ? 2 : 1;
        switch (letter) {
            case 'Y':
                text += run >= 4 ? fmt::format("{:04}", year) : fmt::format("{:02}", year % 100);
                break;
            case 'M':
                text += fmt::format("{:0{}}", afterHours ? minutes : static_cast<long>(month), width);
                break;
            case 'D':
                text += fmt::format("{:0{}}", day, width);
                break;
            case 'H':
                text += fmt::format("{:0{}}", hours, width);
                break;
            case 'S':
                text += fmt::format("{:0{}}", moment.time.count() % 60, width);
                break;
            default:
                text += picture.substr(i, run);
                break;
        }
        const std::string_view dateLetters = "YDS";
        if (letter == 'H')
            afterHours = true;
        else if (letter == 'M' || dateLetters.find(letter) != std::string_view::npos)
            afterHours = false;
        i += run;
    }
    return text;
}

}  // namespace desk
