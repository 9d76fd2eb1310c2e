#pragma once

#include <string_view>
#include <vector>

#include "db/result_column.h"
#include "db/tsql/ast.h"

/// Reads T-SQL for every engine: what a statement says, by the names and kinds of the catalogue. It knows no
/// engine; each renders what was read in its own words.
namespace desk::tsql {

/// A statement that holds for the catalogue's tables.
struct Understood {
    Statement statement;
    std::vector<ResultColumn> columns{};   ///< of the rows that it returns; none if it returns no rows
    const schema::Table* table = nullptr;  ///< whose rows these are, when they can be changed through it

    bool givesRows() const { return std::holds_alternative<Query>(statement); }
};

/// Fails with -2147217900 at what is no statement of the dialect or names a column that the catalogue does
/// not have, with -2147217865 at such a table, with -2147217913 at a literal that cannot be converted, with
/// -2147217833 at one that is too long for its column.
Understood understand(std::string_view statement);

}  // namespace desk::tsql
