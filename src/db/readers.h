#pragma once

#include <set>

namespace desk {

/// A cursor that reads its rows as they are asked for, and so keeps its connection from other work.
class Streaming {
  public:
    virtual ~Streaming() = default;
    /// Reads all that is left into memory and lets go of the connection. What fails on the way is told to
    /// whoever reads the cursor, when he comes to that row.
    virtual void keepRest() = 0;
};

/// The cursors that read from a connection at this moment.
class Readers {
  public:
    void started(Streaming& cursor) { streaming_.insert(&cursor); }
    void ended(Streaming& cursor) { streaming_.erase(&cursor); }

    /// Frees the connection for a write: all that is left of open rows is read into memory.
    void stopReading();

  protected:
    Readers() = default;
    ~Readers() = default;

  private:
    std::set<Streaming*> streaming_;
};

}  // namespace desk
