#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/cursor.h"
#include "db/result_column.h"

namespace desk::embedded {

/// A statement in SQLite's words, and what its rows hold.
struct Translation {
    std::string sql;
    bool givesRows = false;
    std::vector<ResultColumn> columns;
    /// The table whose rows these are, when they can be changed; `sql` then gives the row's number first.
    const schema::Table* table = nullptr;
};

/// Translates a T-SQL statement. Fails with -2147217900 and -2147217913.
Translation translate(std::string_view statement, Rows mode);

}  // namespace desk::embedded
