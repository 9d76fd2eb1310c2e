#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "db/embedded/sqlite.h"
#include "db/embedded/statistics.h"
#include "db/embedded/translation.h"
#include "db/statement.h"
#include "schema/definition.h"
#include "support/test_program.h"

namespace desk {

/// A program on a database in memory, and the same rows behind SQLite alone: what is measured, and what it is
/// measured by.
struct BothDatabases {
    BothDatabases() {
        program.openDatabase();
        for (const auto& statement : schema::definition(schema::Dialect::sqlite)) bare.run(statement);
    }

    /// Commits all that `insertRows` inserts as one.
    template <class InsertRows>
    void fill(InsertRows insertRows) {
        program.db().begin();
        bare.run("BEGIN");
        insertRows();
        program.db().commit();
        bare.run("COMMIT");
        embedded::Statistics(bare).refresh();
    }

    void insert(const std::string& statement) {
        program.db().execute(statement);
        bare.run(embedded::translate(statement, Rows::forwardOnly).sql);
    }

    /// Reads each text of the statement's rows behind SQLite alone.
    void readAll(benchmark::State& state, std::string_view statement) {
        const auto translation = embedded::translate(statement, Rows::forwardOnly);
        const int columns = static_cast<int>(translation.columns.size());
        for (auto _ : state) {
            std::size_t bytes = 0;
            auto rows = bare.prepare(translation.sql);
            while (rows.step())
                for (int column = 0; column < columns; ++column) bytes += rows.text(column).size();
            benchmark::DoNotOptimize(bytes);
        }
    }

    TestProgram program;
    embedded::Sqlite bare{":memory:", embedded::Sqlite::Missing::isCreated, std::chrono::seconds(1)};
};

}  // namespace desk
