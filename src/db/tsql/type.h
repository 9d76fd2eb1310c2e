#pragma once

namespace desk::tsql {

/// What an expression gives. Flags are integers.
enum class Type { null, condition, text, integer, number, date, moment };

}  // namespace desk::tsql
