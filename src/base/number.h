#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace desk {

/// The number at the head of `text`, blanks skipped; 0 when there is none. "12元" is 12, "元12" is 0.
double val(std::string_view text);

/// The number that the whole of `text` is, blanks around it apart; nothing if it is none.
std::optional<double> wholeNumber(std::string_view text);

/// `value` rounded to an integer, halves to the even neighbour.
double roundHalfEven(double value);

/// `value` rounded half to even into 16 bits. Fails with 6 when it does not fit.
std::int16_t toInt16(double value);

/// As above for a text; fails with 13 when it is no number.
std::int16_t toInt16(std::string_view text);

/// `value` rounded half to even into 32 bits. Fails with 6 when it does not fit.
std::int32_t toInt32(double value);

/// As above for a text; fails with 13 when it is no number.
std::int32_t toInt32(std::string_view text);

/// `value` as plain text of at most 15 significant digits, without a trailing point or zeros.
std::string numberText(double value);

/// `value` by a picture of zeros, such as "000000" or "0.00". Halves go away from zero; wider numbers grow.
std::string formatNumber(double value, std::string_view picture);

}  // namespace desk
