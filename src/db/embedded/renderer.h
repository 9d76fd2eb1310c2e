#pragma once

#include <string>

#include "db/tsql/ast.h"

namespace desk::embedded {

/// The functions that the engine adds to SQLite for the renderer.
inline constexpr const char* likeFunction = "desk_like";
inline constexpr const char* numberFunction = "desk_number";

/// What the rows of a query begin with.
enum class RowNumbers {
    without,
    first,  ///< the row's number in the file stands before all outputs
};

/// A resolved statement in SQLite's words.
std::string render(const tsql::Statement& statement, RowNumbers rowNumbers = RowNumbers::without);

/// A name as SQLite takes it, whatever is in it.
std::string quotedName(std::string_view name);

}  // namespace desk::embedded
