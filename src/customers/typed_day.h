#pragma once

#include <string>

#include "db/value.h"

namespace desk {

/// The day that a date field tells, as the tables store it ("YYYY-MM-DD"); NULL for an empty field. A text
/// that is no date is left as it is, for the database to refuse.
Value typedDay(const std::string& text);

}  // namespace desk
