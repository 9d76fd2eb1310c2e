#pragma once

#include <string>
#include <vector>

#include "base/text.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "schema/catalogue.h"
#include "steps.h"
#include "support/failures.h"
#include "wire/process/engine_choice.h"

namespace desk {

inline const std::string memory = "Initial Catalog=':memory:';Data Source='(embedded)'";

inline std::string fileConnection(const std::string& path) {
    return "Initial Catalog='" + path + "';Data Source='(embedded)'";
}

/// An empty database of the engine that the run is for.
struct EmptyDatabase {
    Connection connection;
    EmptyDatabase() { connection.open(emptyTestDatabase(), std::chrono::seconds(5)); }

    /// All rows of a statement, fields joined by "|".
    std::vector<std::string> rows(std::string_view statement) {
        std::vector<std::string> lines;
        for (auto& row : Recordset(connection, statement)) {
            std::vector<std::string> fields;
            for (int column = 0; column < row.columnCount(); ++column) fields.push_back(row[column].text());
            lines.push_back(join(fields, "|"));
        }
        return lines;
    }
    std::string row(std::string_view statement) { return join(rows(statement), "\n"); }
};

/// A small property: every statement of the system finds something in it.
struct FilledDatabase : EmptyDatabase {
    FilledDatabase() {
        for (const auto& statement : stepsOf("filled.txt")) connection.execute(statement.asked);
    }
};

}  // namespace desk
