#include "db/embedded/sqlite.h"

#include "base/failure.h"
#include "db/embedded/functions.h"
#include "db/embedded/sqlite_failure.h"
#include "schema/definition.h"

namespace desk::embedded {

namespace {

int compareTexts(void* collation, int lengthA, const void* a, int lengthB, const void* b) {
    return static_cast<const Collation*>(collation)->compare(
        {static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
        {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

}  // namespace

SqliteStatement::SqliteStatement(sqlite3* database, std::string_view sql) {
    sqlite3_stmt* handle = nullptr;
    const int result =
        sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &handle, nullptr);
    handle_.reset(handle);
    if (result != SQLITE_OK) fail(database);
}

void SqliteStatement::bind(int position, const Value& value) {
    auto* handle = handle_.get();
    const auto& held = value.held();
    if (const auto* integer = std::get_if<std::int64_t>(&held))
        sqlite3_bind_int64(handle, position, *integer);
    else if (const auto* number = std::get_if<double>(&held))
        sqlite3_bind_double(handle, position, *number);
    else if (const auto* text = std::get_if<std::string>(&held))
        sqlite3_bind_text64(handle, position, text->data(), text->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    else
        sqlite3_bind_null(handle, position);
}

bool SqliteStatement::step() {
    const int result = sqlite3_step(handle_.get());
    if (result == SQLITE_ROW) return true;
    if (result == SQLITE_DONE) return false;
    fail(sqlite3_db_handle(handle_.get()));
}

void SqliteStatement::reset() {
    sqlite3_reset(handle_.get());
}

Sqlite::Sqlite(std::string_view path, Missing missing, std::chrono::seconds timeout) : patience_(timeout) {
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                      (missing == Missing::isCreated ? SQLITE_OPEN_CREATE : 0);
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(std::string(path).c_str(), &handle, flags, nullptr);
    handle_.reset(handle);
    if (handle == nullptr) throw RuntimeFailure(failure::unspecified, "内存不足，无法打开数据库文件。");
    if (result != SQLITE_OK) fail(handle);
    patience_.serve(handle);
    // A Bloom filter hashes texts by their bytes. Texts that the collation holds for equal though their bytes
    // differ ("01" and "01 ") would lose each other in a join without a word.
    constexpr unsigned bloomFilters = 0x80000;
    sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, handle, bloomFilters);
    // Strict rules: no texts in double quotes, no calls from a file that somebody else has made.
    for (const int option :
         {SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_TRUSTED_SCHEMA})
        sqlite3_db_config(handle, option, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_create_collation_v2(handle, std::string(schema::collationName).c_str(), SQLITE_UTF8, &collation_,
                                compareTexts, nullptr);
    addFunctions(handle);
}

}  // namespace desk::embedded
