#pragma once

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace desk::wire {

/// The driver by bare calls, as little of them as shows what it and the server say to each other.
class PlainClient {
  public:
    PlainClient() {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
        SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    }
    ~PlainClient() {
        end();
        SQLDisconnect(connection_);
        SQLFreeHandle(SQL_HANDLE_DBC, connection_);
        SQLFreeHandle(SQL_HANDLE_ENV, environment_);
    }
    PlainClient(const PlainClient&) = delete;
    PlainClient& operator=(const PlainClient&) = delete;

    /// Whether it is connected; error() tells why not.
    bool connect(int port, std::string_view database, std::string_view more = {},
                 std::string_view password = "Secret") {
        auto text = toUtf16("Driver=FreeTDS;TDS_Version=7.3;ClientCharset=UTF-8;Server=127.0.0.1;Port=" +
                            std::to_string(port) + ";Database={" + std::string(database) + "};UID=sa;PWD={" +
                            std::string(password) + "};" + std::string(more));
        SQLSetConnectAttrW(connection_, SQL_ATTR_LOGIN_TIMEOUT, reinterpret_cast<SQLPOINTER>(5), 0);
        const auto result = SQLDriverConnectW(connection_, nullptr, wide(text), SQLSMALLINT(text.size()),
                                              nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
        return noted(result, SQL_HANDLE_DBC, connection_);
    }

    /// Runs a batch; its first result is the current one. Whether it went well.
    bool run(std::string_view batch, int timeout = 0) {
        end();
        SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement_);
        if (timeout > 0)
            SQLSetStmtAttrW(statement_, SQL_ATTR_QUERY_TIMEOUT,
                            reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(timeout)), 0);
        auto text = toUtf16(batch);
        const auto result = SQLExecDirectW(statement_, wide(text), SQLINTEGER(text.size()));
        return result == SQL_NO_DATA || noted(result, SQL_HANDLE_STMT, statement_);
    }

    /// The rows that are left, fields joined by "|", NULL as "-".
    std::vector<std::string> rows() {
        std::vector<std::string> found;
        SQLSMALLINT columns = 0;
        SQLNumResultCols(statement_, &columns);
        SQLRETURN result = SQL_NO_DATA;
        while (columns > 0 && SQL_SUCCEEDED(result = SQLFetch(statement_))) {
            std::vector<std::string> fields;
            for (SQLSMALLINT i = 1; i <= columns; ++i) fields.push_back(field(i));
            found.push_back(join(fields, "|"));
        }
        if (columns > 0 && result != SQL_NO_DATA) noted(result, SQL_HANDLE_STMT, statement_);
        return found;
    }
    std::vector<std::string> rows(std::string_view batch) {
        run(batch);
        return rows();
    }
    bool nextResult() { return SQL_SUCCEEDED(SQLMoreResults(statement_)); }
    long changed() {
        SQLLEN count = 0;
        SQLRowCount(statement_, &count);
        return static_cast<long>(count);
    }
    /// The first thing that the last failed call said: state, number and text.
    const std::string& error() const { return error_; }

    std::string describe(SQLUSMALLINT column) {
        SQLWCHAR name[100];
        SQLSMALLINT units = 0, type = 0, digits = 0, nullable = 0;
        SQLULEN size = 0;
        SQLDescribeColW(statement_, column, name, 100, &units, &type, &size, &digits, &nullable);
        return toUtf8({reinterpret_cast<const char16_t*>(name), std::size_t(units)}) + " " +
               std::to_string(type) + " " + std::to_string(size);
    }

  private:
    static SQLWCHAR* wide(std::u16string& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }

    std::string field(SQLSMALLINT column) {
        std::u16string whole;
        char16_t part[256];
        SQLLEN size = 0;
        while (SQL_SUCCEEDED(
            SQLGetData(statement_, SQLUSMALLINT(column), SQL_C_WCHAR, part, sizeof part, &size))) {
            if (size == SQL_NULL_DATA) return "-";
            const auto units = size == SQL_NO_TOTAL ? 255 : std::size_t(size) / sizeof(char16_t);
            whole.append(part, std::min<std::size_t>(units, 255));
        }
        return toUtf8(whole);
    }

    bool noted(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
        if (SQL_SUCCEEDED(result)) return true;
        SQLWCHAR state[6] = {}, text[600] = {};
        SQLINTEGER number = 0;
        SQLSMALLINT units = 0;
        SQLGetDiagRecW(kind, handle, 1, state, &number, text, 600, &units);
        const auto utf8 = [](const SQLWCHAR* units16) {
            return toUtf8(reinterpret_cast<const char16_t*>(units16));
        };
        error_ = utf8(state) + " " + std::to_string(number) + " " + utf8(text);
        return false;
    }

    void end() {
        if (statement_ != nullptr) SQLFreeHandle(SQL_HANDLE_STMT, statement_);
        statement_ = nullptr;
    }

    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
    SQLHSTMT statement_ = nullptr;
    std::string error_;
};

}  // namespace desk::wire
