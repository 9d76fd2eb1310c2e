#include "db/value.h"

#include <cmath>

#include "base/failure.h"
#include "base/number.h"

namespace desk {

namespace {

[[noreturn]] void typeMismatch() {
    throw RuntimeFailure(failure::typeMismatch, "类型不匹配");
}

std::int64_t rounded(double number) {
    constexpr double bound = 9223372036854775808.0;
    const double value = roundHalfEven(number);
    if (!(value >= -bound && value < bound)) throw RuntimeFailure(failure::overflow, "溢出");
    return static_cast<std::int64_t>(value);
}

}  // namespace

std::string Value::text() const {
    if (const auto* number = std::get_if<std::int64_t>(&held_)) return std::to_string(*number);
    if (const auto* number = std::get_if<double>(&held_)) return numberText(*number);
    if (const auto* text = std::get_if<std::string>(&held_)) return *text;
    if (const auto* moment = std::get_if<DateTime>(&held_))
        return moment->time.count() == 0 ? isoDay(*moment) : isoStamp(*moment);
    return {};
}

std::int64_t Value::integer() const {
    if (const auto* number = std::get_if<std::int64_t>(&held_)) return *number;
    return rounded(number());
}

double Value::number() const {
    if (const auto* number = std::get_if<std::int64_t>(&held_)) return static_cast<double>(*number);
    if (const auto* number = std::get_if<double>(&held_)) return *number;
    if (const auto* text = std::get_if<std::string>(&held_)) {
        const auto number = wholeNumber(*text);
        if (!number) typeMismatch();
        return *number;
    }
    if (std::holds_alternative<DateTime>(held_)) typeMismatch();
    return 0;
}

bool Value::flag() const {
    if (const auto* number = std::get_if<std::int64_t>(&held_)) return *number != 0;
    return number() != 0;
}

DateTime Value::moment() const {
    if (const auto* moment = std::get_if<DateTime>(&held_)) return *moment;
    if (isNull()) throw RuntimeFailure(failure::invalidNull, "无效使用 Null");
    const auto* text = std::get_if<std::string>(&held_);
    const auto parsed = text != nullptr ? parseDate(*text) : std::nullopt;
    if (!parsed) typeMismatch();
    return *parsed;
}

}  // namespace desk
