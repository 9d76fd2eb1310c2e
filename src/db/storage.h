#pragma once

#include <string_view>

#include "db/value.h"
#include "schema/catalogue.h"

namespace desk {

/// `value` as a column of `kind` is held by the engines: NULL, an integer, a floating-point number, or a
/// text; moments are "YYYY-MM-DD HH:MM:SS", days "YYYY-MM-DD", unless they were told a time: a server keeps
/// that, and so does a file. Fails with -2147217913 when it cannot be converted, with -2147217833 when it is
/// a text longer than the column can hold.
Value stored(schema::Kind kind, const Value& value);

/// The moment that a day or a moment tells as it is held.
DateTime heldMoment(std::string_view text);

/// A day or a moment as it is held, as Value::text() writes it: midnight is left out.
std::string_view dateText(std::string_view text);

}  // namespace desk
