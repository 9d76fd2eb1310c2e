#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "db/recordset.h"
#include "db/statement.h"

namespace desk::sample {

/// Adds rows to one table, values in the order of the columns named at the start; other columns stay NULL.
class Filler {
  public:
    Filler(Connection& connection, Name table, std::initializer_list<std::string_view> columns);

    void add(std::initializer_list<Value> values);
    /// The identity that the last row got.
    std::int64_t identity();
    /// How many rows were added.
    long count() const { return count_; }

  private:
    Recordset rows_;
    std::vector<int> columns_;
    long count_ = 0;
};

}  // namespace desk::sample
