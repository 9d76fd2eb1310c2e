#include "db/storage.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>

#include "base/number.h"
#include "base/text.h"
#include "db/tsql/sql_failure.h"

namespace desk {

using tsql::noDate;
using tsql::noNumber;

namespace {

double numberOf(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value.held())) {
        const auto number = wholeNumber(*text);
        if (!number) noNumber(*text);
        return *number;
    }
    if (std::holds_alternative<DateTime>(value.held())) noNumber(value.text());
    return value.number();
}

std::int64_t integerOf(const Value& value) {
    const double number = roundHalfEven(numberOf(value));
    using Limits = std::numeric_limits<std::int32_t>;
    if (!(number >= Limits::min() && number <= Limits::max())) noNumber(value.text());
    return static_cast<std::int64_t>(number);
}

std::int64_t flagOf(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value.held())) {
        if (schema::sameName(*text, "True")) return 1;
        if (schema::sameName(*text, "False")) return 0;
    }
    return numberOf(value) != 0 ? 1 : 0;
}

DateTime momentOf(const Value& value) {
    if (const auto* moment = std::get_if<DateTime>(&value.held())) return *moment;
    const auto* text = std::get_if<std::string>(&value.held());
    const auto moment = text != nullptr ? parseDate(*text) : std::nullopt;
    if (!moment) noDate(value.text());
    return *moment;
}

/// A text that a short column can hold. A server refuses a longer one, and so no engine takes it.
std::string fitting(std::string text) {
    if (text.size() > schema::textLength && toUtf16(text).size() > schema::textLength)
        throw RuntimeFailure(failure::textTooLong,
                             fmt::format("文本过长：最多可以保存 {} 个字符。", schema::textLength));
    return text;
}

}  // namespace

Value stored(schema::Kind kind, const Value& value) {
    using schema::Kind;
    if (value.isNull()) return {};
    switch (kind) {
        case Kind::text:
            return fitting(value.text());
        case Kind::longText:
            return value.text();
        case Kind::integer:
        case Kind::identity:
            return integerOf(value);
        case Kind::flag:
            return flagOf(value);
        case Kind::number:
            return numberOf(value);
        case Kind::money:
            return std::round(numberOf(value) * 1e4) / 1e4;
        case Kind::date:
            return std::string(dateText(isoStamp(momentOf(value))));
        case Kind::moment:
            return isoStamp(momentOf(value));
    }
    return {};
}

DateTime heldMoment(std::string_view text) {
    const auto moment = parseDate(text);
    if (!moment) noDate(text);
    return *moment;
}

std::string_view dateText(std::string_view text) {
    constexpr std::string_view midnight = " 00:00:00";
    if (text.ends_with(midnight)) text.remove_suffix(midnight.size());
    return text;
}

}  // namespace desk
