#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace desk::schema {

enum class Dialect {
    sqlite,     ///< the embedded engine
    sqlServer,  ///< SQL Server 2005 or later
};

/// The name under which the embedded engine registers its collation before it opens a database.
inline constexpr std::string_view collationName = "desk_zh";

/// The statements that create every table and index of the catalogue, in the order in which they are to be
/// run.
///
/// On SQL Server the indexes by length are left out: an index there takes columns only.
std::vector<std::string> definition(Dialect dialect);

/// How the embedded engine writes the length of `operand` without its trailing blanks, in indexes and
/// statements alike: an index serves a statement only when both say it in the same words.
std::string sqliteLength(std::string_view operand);

}  // namespace desk::schema
