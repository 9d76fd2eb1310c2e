#include "base/money.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "base/failure.h"
#include "base/number.h"

namespace desk {

namespace {

constexpr std::int64_t scale = 10000;

[[noreturn]] void overflow() {
    throw RuntimeFailure(failure::overflow, "溢出");
}

}  // namespace

Money Money::of(double amount) {
    double scaled = amount * static_cast<double>(scale);
    // A half such as 0.00015 is held a hair beside itself; what a person reads as a half counts as one.
    const double halves = std::round(scaled * 2);
    if (std::abs(scaled * 2 - halves) <= std::abs(halves) * 4 * std::numeric_limits<double>::epsilon())
        scaled = halves / 2;
    const double rounded = roundHalfEven(scaled);
    constexpr double limit = 9.2233720368547748e18;
    if (!(std::abs(rounded) <= limit)) overflow();
    Money money;
    money.units_ = static_cast<std::int64_t>(rounded);
    return money;
}

Money Money::of(std::string_view text) {
    const auto number = wholeNumber(text);
    if (!number) throw RuntimeFailure(failure::typeMismatch, "类型不匹配");
    return of(*number);
}

Money& Money::operator+=(Money other) {
    if (__builtin_add_overflow(units_, other.units_, &units_)) overflow();
    return *this;
}

std::string Money::text() const {
    std::string digits =
        fmt::format("{}{}.{:04}", units_ < 0 ? "-" : "", std::abs(units_ / scale), std::abs(units_ % scale));
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') digits.pop_back();
    return digits;
}

}  // namespace desk
