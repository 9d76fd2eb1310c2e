#pragma once

#include <memory>
#include <string_view>

#include "db/cursor.h"

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
};

}  // namespace desk
