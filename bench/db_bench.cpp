#include <benchmark/benchmark.h>

#include <fstream>
#include <functional>

#include "base/failure.h"
#include "base/number.h"
#include "db/embedded/sqlite.h"
#include "db/embedded/statistics.h"
#include "db/embedded/translation.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "schema/definition.h"

namespace {

using namespace desk;

constexpr int leadCount = 100000;
constexpr std::string_view allLeads =
    "Select * From YZ_引驻客户信息 Where  管理处代号='01'  Order By Len(登记编号),登记编号";

/// The fields that a tree of customers shows.
constexpr std::string_view shown[] = {"登记编号", "公司名称", "客户姓名", "登记日期"};

std::string number(int serial) {
    return "2011-" + formatNumber(serial, "000000");
}

void addLeads(const std::function<void(const std::string&)>& execute) {
    for (int i = 1; i <= leadCount; ++i)
        execute(
            sql("Insert Into YZ_引驻客户信息 "
                "(管理处代号,登记编号,流水号,客源类别,公司名称,客户姓名,客户电话,媒体,"
                "企业性质,需求面积,登记日期) Values "
                "('01','{}',{},'引驻来人','盛远{}','王','6{}','报纸,网络','外资',{},"
                "'2011-3-{}')",
                number(i), i, i, i, i % 500, i % 28 + 1));
}

void openInMemory(Connection& connection) {
    connection.open("Initial Catalog=':memory:';Data Source='(embedded)'", std::chrono::seconds(1));
}

/// The leads behind a connection and, row for row the same, behind SQLite alone.
struct Leads {
    Connection connection;
    embedded::Sqlite bare{":memory:", embedded::Sqlite::Missing::isCreated, std::chrono::seconds(1)};

    Leads() {
        openInMemory(connection);
        connection.begin();
        addLeads([&](const std::string& statement) { connection.execute(statement); });
        connection.commit();
        bare.run("BEGIN");
        for (const auto& statement : schema::definition(schema::Dialect::sqlite)) bare.run(statement);
        addLeads([&](const std::string& statement) {
            bare.run(embedded::translate(statement, Rows::forwardOnly).sql);
        });
        bare.run("COMMIT");
        embedded::Statistics(bare).refresh();
    }
};

Leads& leads() {
    static Leads all;
    return all;
}

sqlite3_stmt* prepared(sqlite3* database, const std::string& text) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr);
    return statement;
}

void rowsOfRecordset(benchmark::State& state) {
    auto& connection = leads().connection;
    for (auto _ : state) {
        std::size_t bytes = 0;
        Recordset rows(connection, allLeads);
        int columns[4];
        for (int i = 0; i < 4; ++i) columns[i] = rows.column(shown[i]);
        for (; !rows.atEnd(); rows.moveNext())
            for (const int column : columns)
                if (!rows[column].isNull()) bytes += rows[column].view().size();
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(state.iterations() * leadCount);
}

void rowsOfSqliteAlone(benchmark::State& state) {
    auto& bare = leads().bare;
    const auto translation = embedded::translate(allLeads, Rows::forwardOnly);
    int columns[4];
    for (int i = 0; i < 4; ++i)
        for (std::size_t c = 0; c < translation.columns.size(); ++c)
            if (translation.columns[c].name == shown[i]) columns[i] = static_cast<int>(c);
    for (auto _ : state) {
        std::size_t bytes = 0;
        auto* statement = prepared(bare.handle(), translation.sql);
        while (sqlite3_step(statement) == SQLITE_ROW)
            for (const int column : columns) {
                if (sqlite3_column_type(statement, column) == SQLITE_NULL) continue;
                benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
                bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
            }
        sqlite3_finalize(statement);
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(state.iterations() * leadCount);
}

void translateEveryStatement(benchmark::State& state) {
    std::vector<std::string> statements;
    std::ifstream file(STATEMENTS);
    for (std::string line; std::getline(file, line);) {
        const bool isStatement = !line.starts_with("    ") && !line.starts_with('#');
        if (!isStatement) continue;
        try {
            embedded::translate(line, Rows::forwardOnly);
            statements.push_back(line);
        } catch (const RuntimeFailure&) {
            // One of those that the system sends though they fail.
        }
    }
    for (auto _ : state)
        for (const auto& statement : statements)
            benchmark::DoNotOptimize(embedded::translate(statement, Rows::forwardOnly));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(statements.size()));
}

void lookUpOneLead(benchmark::State& state) {
    auto& connection = leads().connection;
    int i = 0;
    for (auto _ : state) {
        i = i % leadCount + 1;
        benchmark::DoNotOptimize(anyRow(
            connection,
            sql("Select * From YZ_引驻客户信息  Where 登记编号='{}' AND 管理处代号='{}'", number(i), "01")));
    }
    state.SetItemsProcessed(state.iterations());
}

void addLeadsInOneTransaction(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        Connection connection;
        openInMemory(connection);
        state.ResumeTiming();
        connection.begin();
        Recordset rows(connection, "Select * From YZ_引驻客户信息 Where 1=0", Rows::updatable);
        for (int serial = 1; serial <= 10000; ++serial) {
            rows.addNew();
            rows["登记编号"] = number(serial);
            rows["管理处代号"] = "01";
            rows["流水号"] = serial;
            rows["公司名称"] = "盛远";
            rows["登记日期"] = DateTime(2011, 3, 5);
            rows.update();
        }
        connection.commit();
    }
    state.SetItemsProcessed(state.iterations() * 10000);
}

void makeTheCollation(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(embedded::Collation());
}

void openADatabaseInMemory(benchmark::State& state) {
    for (auto _ : state) {
        Connection connection;
        openInMemory(connection);
    }
}

BENCHMARK(rowsOfRecordset)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(rowsOfSqliteAlone)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(translateEveryStatement)->Unit(benchmark::kMicrosecond);
BENCHMARK(lookUpOneLead)->Unit(benchmark::kMicrosecond);
BENCHMARK(addLeadsInOneTransaction)->Unit(benchmark::kMillisecond);
BENCHMARK(makeTheCollation)->Unit(benchmark::kMicrosecond);
BENCHMARK(openADatabaseInMemory)->Unit(benchmark::kMicrosecond);

}  // namespace
