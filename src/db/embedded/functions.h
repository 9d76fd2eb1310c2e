#pragma once

#include <string_view>

struct sqlite3;

namespace desk::embedded {

/// Adds the functions that the renderer writes to an open database.
void addFunctions(sqlite3* database);

/// Whether `text` matches the pattern of LIKE: % for any characters, _ for one, [a-c] and [^a-c] for one of a
/// set, all of them in their ASCII form only. Case and width do not count.
bool isLike(std::string_view text, std::string_view pattern);

}  // namespace desk::embedded
