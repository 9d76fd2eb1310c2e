#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "base/date.h"

namespace desk {

/// One field of a row: NULL, a number, a text or a moment. Reading it as another kind converts as the
/// program's users expect; what cannot be converted fails with 13.
class Value {
  public:
    Value() = default;
    Value(std::int64_t number) : held_(number) {}
    Value(int number) : held_(std::int64_t{number}) {}
    Value(bool flag) : held_(std::int64_t{flag ? 1 : 0}) {}
    Value(double number) : held_(number) {}
    Value(std::string text) : held_(std::move(text)) {}
    Value(std::string_view text) : held_(std::string(text)) {}
    Value(const char* text) : held_(std::string(text)) {}
    Value(DateTime moment) : held_(moment) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(held_); }

    /// NULL is the empty text; a moment is "YYYY-MM-DD", with " HH:MM:SS" unless it is midnight.
    std::string text() const;
    /// NULL is 0.
    std::int64_t integer() const;
    /// NULL is 0.
    double number() const;
    /// NULL is false; any number but 0 is true.
    bool flag() const;
    /// NULL fails with 94.
    DateTime moment() const;

    bool operator==(const Value&) const = default;

    const auto& held() const { return held_; }

  private:
    std::variant<std::monostate, std::int64_t, double, std::string, DateTime> held_;
};

/// `text` as a column takes an optional entry: NULL when it is empty.
inline Value nullIfEmpty(std::string_view text) {
    return text.empty() ? Value() : Value(text);
}

}  // namespace desk
