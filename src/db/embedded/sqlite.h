#pragma once

#include <sqlite3.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "db/embedded/collation.h"
#include "db/embedded/patience.h"
#include "db/value.h"

namespace desk::embedded {

/// A prepared statement of SQLite. Failures of stepping are those that Connection tells.
class SqliteStatement {
  public:
    SqliteStatement() = default;
    SqliteStatement(sqlite3* database, std::string_view sql);

    explicit operator bool() const { return handle_ != nullptr; }

    /// Binds a value as it stands in the file; `position` counts from 1.
    void bind(int position, const Value& value);
    /// Goes to the next row; whether there is one.
    bool step();
    /// Lets go of all locks; the statement can be stepped anew.
    void reset();
    /// Lets go of everything.
    void close() { handle_.reset(); }

    bool isNull(int column) const { return sqlite3_column_type(handle_.get(), column) == SQLITE_NULL; }
    std::int64_t integer(int column) const { return sqlite3_column_int64(handle_.get(), column); }
    double number(int column) const { return sqlite3_column_double(handle_.get(), column); }
    std::string_view text(int column) const {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(handle_.get(), column));
        if (bytes == nullptr) return {};
        return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column))};
    }

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

/// An open file, or memory, with the collation and the functions that statements need.
class Sqlite {
  public:
    enum class Missing { isFailure, isCreated };

    /// `timeout` bounds every wait for another seat. Fails with -2147467259.
    Sqlite(std::string_view path, Missing missing, std::chrono::seconds timeout);
    Sqlite(const Sqlite&) = delete;
    Sqlite& operator=(const Sqlite&) = delete;

    SqliteStatement prepare(std::string_view sql) const { return {handle_.get(), sql}; }
    /// Runs a statement of the engine's own.
    void run(std::string_view sql) const { prepare(sql).step(); }

    const Collation& collation() const { return collation_; }
    sqlite3* handle() const { return handle_.get(); }
    bool inTransaction() const { return sqlite3_get_autocommit(handle_.get()) == 0; }
    std::int64_t lastIdentity() const { return sqlite3_last_insert_rowid(handle_.get()); }
    /// How many rows this connection has written so far.
    std::int64_t allChanges() const { return sqlite3_total_changes64(handle_.get()); }
    long changedRows() const { return static_cast<long>(sqlite3_changes(handle_.get())); }

  private:
    friend class Hurry;
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };
    Collation collation_;
    mutable Patience patience_;
    std::unique_ptr<sqlite3, Close> handle_;
};

/// While it lives nothing waits for another seat.
class Hurry {
  public:
    explicit Hurry(const Sqlite& sqlite) : sqlite_(sqlite) {
        sqlite3_busy_handler(sqlite.handle(), nullptr, nullptr);
    }
    ~Hurry() { sqlite_.patience_.serve(sqlite_.handle()); }
    Hurry(const Hurry&) = delete;
    Hurry& operator=(const Hurry&) = delete;

  private:
    const Sqlite& sqlite_;
};

}  // namespace desk::embedded
