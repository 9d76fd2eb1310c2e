#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace desk {

/// An amount of yuan in fixed point with four decimal places, so that sums of it are exact.
class Money {
  public:
    Money() = default;

    /// `amount` rounded to four places, halves to the even neighbour. Fails with 6 beyond about 9.2E14.
    static Money of(double amount);
    /// The number that the whole of `text` is. Fails with 13 when it is none.
    static Money of(std::string_view text);

    Money& operator+=(Money other);

    /// Without a trailing point or zeros.
    std::string text() const;

    auto operator<=>(const Money&) const = default;

  private:
    std::int64_t units_ = 0;  ///< ten-thousandths
};

}  // namespace desk
