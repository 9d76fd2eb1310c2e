#pragma once

#include <chrono>
#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace desk {

/// A day, or a moment of a day to the second, in local time. Times zones are not known to the system.
struct DateTime {
    std::chrono::year_month_day day{};
    std::chrono::seconds time{0};  ///< since midnight, below 24 hours

    DateTime() = default;
    DateTime(std::chrono::year_month_day d, std::chrono::seconds t = {}) : day(d), time(t) {}
    DateTime(int y, unsigned m, unsigned d)
        : day(std::chrono::year(y), std::chrono::month(m), std::chrono::day(d)) {}

    auto operator<=>(const DateTime&) const = default;

    /// The same day at midnight.
    DateTime dayOnly() const { return {day}; }
    /// The moment `count` days later.
    DateTime plusDays(int count) const;
};

/// The moment that `text` tells: "2011-3-5", "2011/3/5" or "20110305", with or without " 14:05[:09]";
/// nothing if it tells none, or a day that no calendar has.
std::optional<DateTime> parseDate(std::string_view text);

/// `moment` by a picture: YYYY, MM or M, DD or D, HH, SS in either case, MM after HH being minutes; all else
/// stands for itself ("YYYY年MM月DD日").
std::string formatDate(const DateTime& moment, std::string_view picture);

inline std::string isoDay(const DateTime& moment) {
    return formatDate(moment, "YYYY-MM-DD");
}
inline std::string isoStamp(const DateTime& moment) {
    return formatDate(moment, "YYYY-MM-DD HH:MM:SS");
}

}  // namespace desk
