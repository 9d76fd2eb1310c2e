#include "admin/database_commands.h"

#include <fmt/format.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>

#include "admin/arguments.h"
#include "admin/target.h"
#include "base/failure.h"
#include "db/embedded/embedded.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "db/transaction.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "sample/sample.h"
#include "schema/definition.h"

namespace desk::admin {

namespace {

namespace fs = std::filesystem;

/// How long to wait for seats that hold the file.
constexpr std::chrono::seconds timeout{30};

void refuseExisting(const std::string& file) {
    std::error_code unreachable;
    if (fs::exists(file, unreachable))
        throw RuntimeFailure(failure::pathAccess, fmt::format("文件“{}”已经存在，不会覆盖", file));
}

sample::Size sizeFrom(const Arguments& arguments) {
    const auto number = [&](const char* name, int usual, const sample::Limits& limits) {
        return static_cast<int>(arguments.number(name, usual, limits.least, limits.most));
    };
    sample::Size size;
    size.leads = number("leads", size.leads, sample::leadLimits());
    size.units = number("units", size.units, sample::unitLimits());
    size.staff = number("staff", size.staff, sample::staffLimits());
    size.years = number("years", size.years, sample::yearLimits());
    size.seed = static_cast<std::uint64_t>(arguments.number("seed", 1, 0, 1'000'000'000));
    return size;
}

DateTime dayFrom(const Arguments& arguments) {
    const auto text = arguments.option("today");
    if (!text) return SystemClock().today();
    const auto day = parseDate(*text);
    if (!day) throw UsageError(fmt::format("选项“--today”应为 YYYY-MM-DD 形式的日期，不是“{}”", *text));
    return day->dayOnly();
}

long countRows(Connection& connection, Name table) {
    return static_cast<long>(
        Recordset(connection, sql("Select Count(*) As SL From {}", table))["SL"].integer());
}

void printContents(Connection& connection) {
    for (const Name table :
         std::initializer_list<Name>{"设置管理处", "员工档案", "室表", "YZ_引驻客户信息", "YZ_引驻客户分配",
                                     "YZ_引驻客户跟进记录", "YZ_意向书信息", "YZ_意向金收款"})
        fmt::print("  {} {} 行\n", table.text(), countRows(connection, table));
}

/// Makes all tables in an empty database on a server, or none of them.
void define(Connection& connection) {
    Transaction all(connection);
    for (const auto& statement : schema::definition(schema::Dialect::sqlServer))
        connection.execute(statement);
    all.commit();
}

void fillAndPrint(Connection& connection, const sample::Size& size, const DateTime& today) {
    sample::fill(connection, size, today, SystemFiles::executableDirectory() + "/tax-program");
    printContents(connection);
}

void sampleFile(const std::string& file, const sample::Size& size, const DateTime& today) {
    refuseExisting(file);
    // Under a name of its own until it is whole: whoever looks for the file finds all of it or none.
    const std::string unfinished = fmt::format("{}.{}.new", file, ::getpid());
    try {
        embedded::createDatabase(unfinished);
        Connection connection = openFile(unfinished);
        fillAndPrint(connection, size, today);
        connection = Connection();
        fs::rename(unfinished, file);
    } catch (...) {
        std::error_code ignored;
        fs::remove(unfinished, ignored);
        throw;
    }
}

}  // namespace

Connection openFile(const std::string& file) {
    if (file.find('\'') != std::string::npos)
        throw RuntimeFailure(failure::invalidCall, "数据库文件的路径不能含有单引号");
    Connection connection;
    connection.open(fmt::format("Initial Catalog='{}';Data Source='{}'", file, embedded::dataSource),
                    timeout);
    return connection;
}

void create(const std::vector<std::string>& words) {
    const Target target(words, {}, 0, "");
    if (target.onServer()) {
        Connection connection = target.open();
        define(connection);
    } else {
        refuseExisting(target.file());
        embedded::createDatabase(target.file());
    }
    fmt::print("已建立空数据库 {}\n", target.shown());
}

void printDefinition(const std::vector<std::string>& words) {
    const Arguments arguments(words, {}, 1, "sqlite 或 sqlserver");
    const std::string& engine = arguments.plain(0);
    if (engine != "sqlite" && engine != "sqlserver")
        throw UsageError(fmt::format("“{}”应为 sqlite 或 sqlserver", engine));
    for (const auto& statement :
         schema::definition(engine == "sqlite" ? schema::Dialect::sqlite : schema::Dialect::sqlServer))
        fmt::print("{};\n", statement);
}

void sample(const std::vector<std::string>& words) {
    const Target target(words, {"leads", "units", "staff", "years", "seed", "today"}, 0, "");
    const sample::Size size = sizeFrom(target.arguments());
    const DateTime today = dayFrom(target.arguments());
    const auto start = std::chrono::steady_clock::now();
    if (target.onServer()) {
        Connection connection = target.open();
        define(connection);
        fillAndPrint(connection, size, today);
    } else {
        sampleFile(target.file(), size, today);
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    fmt::print("已建立样板数据库 {}（{:.1f} 秒）\n", target.shown(), taken.count());
}

void upgrade(const std::vector<std::string>& words) {
    const Arguments arguments(words, {}, 1, "FILE");
    const auto done = embedded::upgrade(arguments.plain(0), timeout);
    if (done)
        fmt::print("{}\n", done->told());
    else
        fmt::print("数据库 {} 已是本程序的版本（{}），无须升级\n", arguments.plain(0),
                   schema::definitionVersion);
}

void backup(const std::vector<std::string>& words) {
    const Arguments arguments(words, {}, 2, "FILE TO");
    refuseExisting(arguments.plain(1));
    embedded::backup(arguments.plain(0), arguments.plain(1), timeout);
    fmt::print("已把数据库 {} 备份到 {}\n", arguments.plain(0), arguments.plain(1));
}

}  // namespace desk::admin
