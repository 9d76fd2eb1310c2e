#pragma once

#include <set>

#include "db/embedded/sqlite.h"
#include "db/embedded/statistics.h"

namespace desk::embedded {

/// A cursor that reads its rows as they are asked for, and so holds a lock on the file.
class Streaming {
  public:
    virtual ~Streaming() = default;
    /// Reads all that is left into memory and lets go of the lock. What fails on the way is told to whoever
    /// reads the cursor, when he comes to that row.
    virtual void keepRest() = 0;
};

/// An open database, and the cursors that read from it at this moment.
class Store {
  public:
    explicit Store(std::unique_ptr<Sqlite> sqlite) : sqlite_(std::move(sqlite)) {}

    const Sqlite& sqlite() const { return *sqlite_; }
    Statistics& statistics() { return statistics_; }

    void started(Streaming& cursor) { streaming_.insert(&cursor); }
    void ended(Streaming& cursor) { streaming_.erase(&cursor); }

    /// Lets go of every lock that reading holds. A connection that reads cannot wait for its turn to write:
    /// where two seats did so, each would wait for the other, and SQLite refuses that at once, whatever the
    /// time-out.
    void stopReading();

  private:
    std::unique_ptr<Sqlite> sqlite_;
    Statistics statistics_{*sqlite_};
    std::set<Streaming*> streaming_;
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
