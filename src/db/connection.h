#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "db/difference.h"
#include "db/upgrade.h"
#include "schema/catalogue.h"

namespace desk {

class Engine;

/// A connection to one database. Statements are T-SQL whatever the engine.
class Connection {
  public:
    Connection();
    ~Connection();
    Connection(Connection&&) noexcept;
    Connection& operator=(Connection&&) noexcept;

    /// Opens the database that an OLE DB connection string names. A Data Source of "(embedded)" is the file
    /// named by Initial Catalog (":memory:" for one that lives as long as the connection); any other name is
    /// a server. `timeout` bounds the wait for the server, and for another seat that holds the file. A file
    /// that an older program has made is brought up to the present definition first. Fails with -2147467259
    /// and a text that says what is wrong; the connection is then closed. A file that is missing, read-only,
    /// damaged, from a newer program or not a database of this system is left as it is.
    void open(std::string_view connectionString, std::chrono::seconds timeout);

    /// Runs one statement; gives the number of rows it changed, 0 for one that returns rows.
    /// Fails with -2147217900 (wrong statement), -2147217865 (unknown table), -2147217873 (violated rule),
    /// -2147217913 (a text that cannot be converted), -2147217833 (a text longer than its column),
    /// -2147217871 (another seat holds the rows for too long), -2147467259 (the rest, a lost server among
    /// it).
    long execute(std::string_view statement);

    /// Everything from begin() to commit() is written together or not at all. Without it each write stands
    /// alone. begin() inside an open transaction, commit() and rollback() without one, fail with -2147467259.
    void begin();
    void commit();
    void rollback();

    /// As Engine::differencesOf. Fails as execute() does.
    std::vector<Difference> differencesOf(const schema::Table& table);

    bool isOpen() const { return engine_ != nullptr; }

    /// What opening had to do to a file first, once: whoever takes it tells it. Nothing in most cases.
    std::optional<Upgrade> takeUpgrade() { return std::exchange(upgrade_, std::nullopt); }

    /// The engine behind an open connection; fails with 3709 on a closed one. For Recordset.
    Engine& engine() const;

    /// Puts what `wrap` makes of an engine in its place: of the open one, and of each that open() brings. So
    /// a test sees all statements, and makes one fail.
    using Wrap = std::function<std::unique_ptr<Engine>(std::unique_ptr<Engine>)>;
    void interpose(Wrap wrap);

  private:
    std::unique_ptr<Engine> engine_;
    std::optional<Upgrade> upgrade_;  ///< kept until it is taken, however often the file is opened again
    Wrap wrap_;
};

}  // namespace desk
