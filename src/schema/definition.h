#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "schema/catalogue.h"

namespace desk::schema {

/// The version of the whole definition, which an embedded file carries. It is raised whenever the catalogue
/// changes: an older file is brought up when it is opened, a newer one is refused.
inline constexpr int definitionVersion = 2;

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

/// The statement that creates one table.
std::string tableStatement(Dialect dialect, const Table& table);

/// The statement that creates one index of a table.
std::string indexStatement(Dialect dialect, const Table& table, const Index& index);

/// The statement that adds `column` to a table of the embedded engine that was made without it. Rows that are
/// there get NULL; where the column must hold a value, an empty text, 0, or the first day of 1900.
std::string columnStatement(const Table& table, const Column& column);

/// How the embedded engine writes the length of `operand` without its trailing blanks, in indexes and
/// statements alike: an index serves a statement only when both say it in the same words.
std::string sqliteLength(std::string_view operand);

}  // namespace desk::schema
