#include "db/odbc/odbc_statement.h"

#include <fmt/format.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>

#include "base/text.h"
#include "db/tsql/typing.h"

namespace desk::odbc {

namespace {

using tsql::Type;

SQLPOINTER asAttribute(SQLULEN value) {
    return reinterpret_cast<SQLPOINTER>(value);
}

SQLHSTMT newStatement(const OdbcConnection& connection) {
    SQLHSTMT handle = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection.handle(), &handle)))
        throw failureOf(causeOf(diagnosesOf(SQL_HANDLE_DBC, connection.handle())));
    const auto seconds = static_cast<SQLULEN>(connection.timeout().count());
    SQLSetStmtAttrW(handle, SQL_ATTR_QUERY_TIMEOUT, asAttribute(seconds), SQL_IS_UINTEGER);
    // Braces in a statement are no calls of the driver's own.
    SQLSetStmtAttrW(handle, SQL_ATTR_NOSCAN, asAttribute(SQL_NOSCAN_ON), SQL_IS_UINTEGER);
    return handle;
}

Type typeOf(SQLSMALLINT sqlType, SQLULEN size, SQLSMALLINT digits) {
    constexpr SQLULEN digitsOfAnInteger = std::numeric_limits<std::int64_t>::digits10;
    switch (sqlType) {
        case SQL_BIT:
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return Type::integer;
        case SQL_NUMERIC:
        case SQL_DECIMAL:
            return digits == 0 && size <= digitsOfAnInteger ? Type::integer : Type::number;
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return Type::number;
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIMESTAMP:
            return Type::moment;
        default:
            return Type::text;
    }
}

}  // namespace

void OdbcStatement::Free::operator()(void* handle) const noexcept {
    // The driver would call the statement off, and may lose the line by that.
    while (SQL_SUCCEEDED(SQLFetch(handle))) {
    }
    while (SQL_SUCCEEDED(SQLMoreResults(handle)))
        while (SQL_SUCCEEDED(SQLFetch(handle))) {
        }
    SQLFreeHandle(SQL_HANDLE_STMT, handle);
}

OdbcStatement::OdbcStatement(std::shared_ptr<OdbcConnection> connection, std::string_view batch)
    : connection_(std::move(connection)), handle_(newStatement(*connection_)) {
    auto text = toUtf16(batch);
    const auto result = SQLExecDirectW(handle_.get(), reinterpret_cast<SQLWCHAR*>(text.data()),
                                       static_cast<SQLINTEGER>(text.size()));
    if (result != SQL_NO_DATA && !SQL_SUCCEEDED(result)) fail();
    describe();
}

void OdbcStatement::fail() const {
    connection_->statementFailed();
    auto cause = causeOf(diagnosesOf(SQL_HANDLE_STMT, handle_.get()));
    // Of a server that has stopped while nobody asked the driver says no more than that something is wrong.
    if (cause.state == "HY000" && connection_->isLost()) cause.state = "08S01";
    throw failureOf(cause);
}

void OdbcStatement::describe() {
    SQLSMALLINT count = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(handle_.get(), &count))) fail();
    columns_.clear();
    for (SQLUSMALLINT position = 1; position <= count; ++position) {
        std::array<SQLWCHAR, 256> name{};
        SQLSMALLINT units = 0;
        SQLSMALLINT type = 0;
        SQLSMALLINT digits = 0;
        SQLSMALLINT nullable = 0;
        SQLULEN size = 0;
        if (!SQL_SUCCEEDED(SQLDescribeColW(handle_.get(), position, name.data(),
                                           static_cast<SQLSMALLINT>(name.size()), &units, &type, &size,
                                           &digits, &nullable)))
            fail();
        columns_.push_back(
            {toUtf8(reinterpret_cast<const char16_t*>(name.data())), typeOf(type, size, digits), nullptr});
    }
    fields_.assign(columns_.size(), {});
}

void OdbcStatement::readAs(const schema::Table& table) {
    for (auto& column : columns_) {
        column.column = table.column(column.name);
        if (column.column != nullptr) column.type = tsql::typeOf(column.column->kind);
    }
}

long OdbcStatement::changedRows() const {
    if (!columns_.empty()) return 0;
    SQLLEN count = 0;
    SQLRowCount(handle_.get(), &count);
    return static_cast<long>(std::max<SQLLEN>(count, 0));
}

bool OdbcStatement::nextAnswer() {
    const auto result = SQLMoreResults(handle_.get());
    if (result == SQL_NO_DATA) return false;
    if (!SQL_SUCCEEDED(result)) fail();
    describe();
    return true;
}

void OdbcStatement::finish() {
    do {
        if (columns_.empty()) continue;
        auto result = SQL_SUCCESS;
        while (SQL_SUCCEEDED(result)) result = SQLFetch(handle_.get());
        if (result != SQL_NO_DATA) fail();
    } while (nextAnswer());
}

bool OdbcStatement::step() {
    const auto result = SQLFetch(handle_.get());
    if (result == SQL_NO_DATA) {
        // What a later part of the batch says must not be lost.
        while (nextAnswer()) {
        }
        return false;
    }
    if (!SQL_SUCCEEDED(result)) fail();
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        auto& field = fields_[i];
        read(static_cast<SQLUSMALLINT>(i + 1), columns_[i].type, field);
        if (!field.null) continue;
        // Nothing of the row before may show.
        field.integer = 0;
        field.number = 0;
        field.text.clear();
    }
    return true;
}

/// Asks for a value of a type that has one size; whether there is one.
bool OdbcStatement::readFixed(SQLUSMALLINT position, SQLSMALLINT type, void* value) {
    SQLLEN size = 0;
    if (!SQL_SUCCEEDED(SQLGetData(handle_.get(), position, type, value, 0, &size))) fail();
    return size != SQL_NULL_DATA;
}

void OdbcStatement::read(SQLUSMALLINT position, Type type, Field& field) {
    switch (type) {
        case Type::integer:
            field.null = !readFixed(position, SQL_C_SBIGINT, &field.integer);
            return;
        case Type::number:
            field.null = !readFixed(position, SQL_C_DOUBLE, &field.number);
            return;
        case Type::date:
        case Type::moment:
            return readMoment(position, field);
        default:
            return readText(position, field);
    }
}

void OdbcStatement::readMoment(SQLUSMALLINT position, Field& field) {
    SQL_TIMESTAMP_STRUCT moment{};
    field.null = !readFixed(position, SQL_C_TYPE_TIMESTAMP, &moment);
    if (field.null) return;
    field.text.clear();
    fmt::format_to(std::back_inserter(field.text), "{:04}-{:02}-{:02} {:02}:{:02}:{:02}", moment.year,
                   moment.month, moment.day, moment.hour, moment.minute, moment.second);
}

void OdbcStatement::readText(SQLUSMALLINT position, Field& field) {
    std::array<char16_t, 2048> part;
    std::u16string longer;
    while (true) {
        SQLLEN size = 0;
        const auto result = SQLGetData(handle_.get(), position, SQL_C_WCHAR, part.data(), sizeof part, &size);
        if (result == SQL_NO_DATA) break;
        if (!SQL_SUCCEEDED(result)) fail();
        field.null = size == SQL_NULL_DATA;
        if (field.null) return;
        const auto rest = size == SQL_NO_TOTAL ? part.size() : static_cast<std::size_t>(size) / 2;
        const std::u16string_view read(part.data(), std::min(rest, part.size() - 1));
        if (rest < part.size() && longer.empty()) {
            field.text = toUtf8(read);
            return;
        }
        longer += read;
        if (rest < part.size()) break;
    }
    field.text = toUtf8(longer);
}

}  // namespace desk::odbc
