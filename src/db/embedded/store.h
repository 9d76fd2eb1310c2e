#pragma once

#include "db/embedded/sqlite.h"
#include "db/embedded/statistics.h"
#include "db/readers.h"

namespace desk::embedded {

/// An open database, and the cursors that read from it at this moment.
///
/// Before a write every lock goes that reading holds. A connection that reads cannot wait for its turn to
/// write: where two seats did so, each would wait for the other, and SQLite refuses that at once, whatever
/// the time-out.
class Store : public Readers {
  public:
    explicit Store(std::unique_ptr<Sqlite> sqlite) : sqlite_(std::move(sqlite)) {}

    const Sqlite& sqlite() const { return *sqlite_; }
    Statistics& statistics() { return statistics_; }

  private:
    std::unique_ptr<Sqlite> sqlite_;
    Statistics statistics_{*sqlite_};
};

/// A write that stands alone, or joins the transaction that is open already. Undone unless committed.
class Writing {
  public:
    explicit Writing(Store& store);
    ~Writing();
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;

    void commit();

  private:
    Store& store_;
    bool own_;
};

}  // namespace desk::embedded
