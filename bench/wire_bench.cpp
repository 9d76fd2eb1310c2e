#include <benchmark/benchmark.h>
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <array>
#include <filesystem>
#include <string>

#include "base/text.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "db/transaction.h"
#include "wire/server/server.h"

/// Rows and statements over the wire, against the bare calls of the driver. The server is in this process, so
/// what it takes is in both.
namespace {

using namespace desk;

constexpr int leadCount = 100000;
constexpr std::string_view allLeads =
    "Select 登记编号,公司名称,客户姓名,登记日期 From YZ_引驻客户信息 Where 管理处代号='01'";
constexpr std::string_view oneLead = "Select 公司名称 From YZ_引驻客户信息 Where ID=1";
constexpr int columnCount = 4;

/// A file in a folder that goes with the process.
struct Office {
    Office() {
        std::filesystem::create_directories(folder);
        server.createDatabase("office");
        connection.open(
            "User ID=sa;Password=Secret;Initial Catalog=office;Data Source='" + server.dataSource() + "'",
            std::chrono::seconds(300));
        Connection file;
        file.open("Initial Catalog='" + folder + "/office';Data Source='(embedded)'",
                  std::chrono::seconds(5));
        Transaction all(file);
        for (int i = 1; i <= leadCount; ++i)
            file.execute(
                sql("Insert Into YZ_引驻客户信息 (管理处代号,登记编号,公司名称,客户姓名,登记日期) Values "
                    "('01','2011-{}','盛远{}','王','2011-3-{}')",
                    i, i, i % 28 + 1));
        all.commit();
        connectBare();
    }
    ~Office() {
        SQLDisconnect(bare);
        SQLFreeHandle(SQL_HANDLE_DBC, bare);
        SQLFreeHandle(SQL_HANDLE_ENV, environment);
        connection = Connection();
        std::filesystem::remove_all(folder);
    }

    void connectBare() {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
        SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment, &bare);
        auto text = toUtf16("Driver=FreeTDS;TDS_Version=7.3;ClientCharset=UTF-8;Server=127.0.0.1;Port=" +
                            std::to_string(server.port()) + ";Database=office;UID=sa;PWD=Secret;");
        SQLDriverConnectW(bare, nullptr, reinterpret_cast<SQLWCHAR*>(text.data()),
                          static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    }

    std::string folder = (std::filesystem::temp_directory_path() / "wire-bench").string();
    wire::Server server{folder};
    Connection connection;
    SQLHENV environment = nullptr;
    SQLHDBC bare = nullptr;
};

Office& office() {
    static Office one;
    return one;
}

/// How many units of text the rows of a statement have.
std::size_t readBare(std::string_view statement, int columns) {
    std::size_t units = 0;
    SQLHSTMT handle = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, office().bare, &handle);
    auto text = toUtf16(statement);
    SQLExecDirectW(handle, reinterpret_cast<SQLWCHAR*>(text.data()), static_cast<SQLINTEGER>(text.size()));
    std::array<SQLWCHAR, 512> buffer;
    while (SQL_SUCCEEDED(SQLFetch(handle)))
        for (SQLUSMALLINT column = 1; column <= columns; ++column) {
            SQLLEN size = 0;
            SQLGetData(handle, column, SQL_C_WCHAR, buffer.data(), sizeof buffer, &size);
            units += static_cast<std::size_t>(size) / 2;
        }
    SQLFreeHandle(SQL_HANDLE_STMT, handle);
    return units;
}

void rowsOfBareCalls(benchmark::State& state) {
    office();  // made before anything is measured
    for (auto _ : state) benchmark::DoNotOptimize(readBare(allLeads, columnCount));
    state.SetItemsProcessed(state.iterations() * leadCount);
}

void rowsOfRecordset(benchmark::State& state) {
    office();  // made before anything is measured
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (auto& row : Recordset(office().connection, allLeads))
            for (int column = 0; column < columnCount; ++column) bytes += row[column].text().size();
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(state.iterations() * leadCount);
}

void statementOfBareCalls(benchmark::State& state) {
    office();  // made before anything is measured
    for (auto _ : state) benchmark::DoNotOptimize(readBare(oneLead, 1));
}

void statementOfRecordset(benchmark::State& state) {
    office();  // made before anything is measured
    for (auto _ : state) benchmark::DoNotOptimize(Recordset(office().connection, oneLead)[0].text().size());
}

BENCHMARK(rowsOfBareCalls)->Unit(benchmark::kMillisecond);
BENCHMARK(rowsOfRecordset)->Unit(benchmark::kMillisecond);
BENCHMARK(statementOfBareCalls)->Unit(benchmark::kMicrosecond);
BENCHMARK(statementOfRecordset)->Unit(benchmark::kMicrosecond);

}  // namespace
