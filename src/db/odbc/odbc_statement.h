#pragma once

#include <sql.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/odbc/odbc_connection.h"
#include "db/result_column.h"

namespace desk::odbc {

/// A batch that has been sent, and its answer. While its rows wait the connection has no ear for another one.
/// An answer is always read to its end, also by who does not want it any more.
class OdbcStatement {
  public:
    /// Sends the batch, and waits for the head of its first answer. Fails as Connection::execute does.
    OdbcStatement(std::shared_ptr<OdbcConnection> connection, std::string_view batch);
    OdbcStatement(OdbcStatement&&) noexcept = default;
    OdbcStatement& operator=(OdbcStatement&&) = delete;

    /// The columns of the present answer; none where it gives no rows.
    const std::vector<ResultColumn>& columns() const { return columns_; }
    /// Reads the columns by what the catalogue says of a table's columns of these names.
    void readAs(const schema::Table& table);
    /// How many rows the present answer has changed.
    long changedRows() const;
    /// Goes to the answer of the batch's next statement; whether there is one.
    bool nextAnswer();
    /// Reads all answers that are left.
    void finish();

    /// Goes to the next row; whether there is one. All its fields are read at once.
    bool step();
    void close() noexcept { handle_.reset(); }

    bool isNull(int column) const { return fields_[static_cast<std::size_t>(column)].null; }
    std::int64_t integer(int column) const { return fields_[static_cast<std::size_t>(column)].integer; }
    double number(int column) const { return fields_[static_cast<std::size_t>(column)].number; }
    std::string_view text(int column) const { return fields_[static_cast<std::size_t>(column)].text; }

  private:
    /// A field of the present row, as its column's type has it.
    struct Field {
        bool null = true;
        std::int64_t integer = 0;
        double number = 0;
        std::string text{};
    };
    struct Free {
        void operator()(void* handle) const noexcept;
    };

    [[noreturn]] void fail() const;
    void describe();
    void read(SQLUSMALLINT position, tsql::Type type, Field& field);
    void readMoment(SQLUSMALLINT position, Field& field);
    void readText(SQLUSMALLINT position, Field& field);
    bool readFixed(SQLUSMALLINT position, SQLSMALLINT type, void* value);

    std::shared_ptr<OdbcConnection> connection_;
    std::unique_ptr<void, Free> handle_;
    std::vector<ResultColumn> columns_;
    std::vector<Field> fields_;
};

}  // namespace desk::odbc
