#pragma once

#include <string_view>

#include "db/value.h"
#include "schema/catalogue.h"

namespace desk::embedded {

/// `value` as a column of `kind` keeps it in the file: NULL, an integer, a floating-point number, or a text;
/// days are "YYYY-MM-DD", moments "YYYY-MM-DD HH:MM:SS". Fails with -2147217913 when it cannot be converted.
Value stored(schema::Kind kind, const Value& value);

/// The moment that a day or a moment in the file tells.
DateTime momentInFile(std::string_view text);

/// A day or a moment in the file as Value::text() writes it: midnight is left out.
std::string_view dateText(std::string_view text);

}  // namespace desk::embedded
