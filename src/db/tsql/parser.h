#pragma once

#include <string_view>

#include "db/tsql/ast.h"

namespace desk::tsql {

/// Reads one statement: Select, Update, Delete or Insert. Names are not looked up.
/// Fails with -2147217900, telling the word at which it could not go on.
Statement parse(std::string_view statement);

}  // namespace desk::tsql
