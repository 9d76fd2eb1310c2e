#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schema/catalogue.h"

namespace desk::wire {

/// A column as servers describe it when they are asked for the columns of a table.
struct DescribedColumn {
    std::string name;
    std::string type;
    int bytes = 0;
    int precision = 0;
    int scale = 0;
    bool nullable = true;
    bool identity = false;
    bool computed = false;
    bool hasDefault = false;
};

/// The columns that the definition gives a table.
std::vector<DescribedColumn> describedColumns(const schema::Table& table);

/// The table whose columns a statement asks the server's own catalogue for; none if it asks for other things.
std::optional<std::string> tableAskedFor(std::string_view statement);

}  // namespace desk::wire
