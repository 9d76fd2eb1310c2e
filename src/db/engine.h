#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "db/cursor.h"
#include "db/difference.h"
#include "schema/catalogue.h"

namespace desk {

/// One open database, whatever stands behind it. Statements are T-SQL. Every operation fails as Connection
/// tells.
class Engine {
  public:
    virtual ~Engine() = default;

    virtual std::unique_ptr<Cursor> open(std::string_view statement, Rows mode) = 0;
    virtual long execute(std::string_view statement) = 0;

    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void rollback() = 0;

    /// How the columns of a table that is there differ from the catalogue's in kind: what they cannot hold,
    /// and what they hold in another way. Names that are missing are not told. Reads only.
    virtual std::vector<Difference> differencesOf(const schema::Table& table) = 0;
};

}  // namespace desk
