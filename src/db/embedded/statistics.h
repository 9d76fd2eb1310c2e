#pragma once

#include <cstdint>

namespace desk::embedded {

class Sqlite;

/// What SQLite knows of the tables' sizes, and by which it chooses between their indexes.
///
/// SQLite's own upkeep (PRAGMA optimize) looks only at tables that this connection has read before, and is
/// meant for the moment of closing; the program ends without closing. So sizes are looked at when a database
/// is opened, and again after many writes.
class Statistics {
  public:
    explicit Statistics(const Sqlite& sqlite) : sqlite_(sqlite) {}

    /// Gathers anew for each table that has outgrown what is known of it. It takes a tenth of a second for
    /// 100,000 leads, never waits for another seat and never fails: without statistics everything is right,
    /// only slower.
    void refresh();

    /// refresh(), if this connection has written much since the last time. Outside of a transaction.
    void followWrites();

  private:
    void gather() const;

    const Sqlite& sqlite_;
    std::int64_t seenChanges_ = 0;
};

}  // namespace desk::embedded
