#pragma once

#include <chrono>
#include <random>

struct sqlite3;

namespace desk::embedded {

/// How a connection waits while another seat holds the file: it looks again after a random pause, until the
/// time-out is over. The longer it has waited, the shorter are the pauses, so that of several seats that
/// write without a pause the one that came first finds the next gap. SQLite's own waiting sleeps longer and
/// longer: those that came last always win, and the first may wait for its whole time-out.
class Patience {
  public:
    explicit Patience(std::chrono::milliseconds timeout) : timeout_(timeout) {}

    /// Makes `database` wait so; this object must not move or go before it is closed.
    void serve(sqlite3* database);

  private:
    static int busy(void* patience, int attempts);
    std::chrono::microseconds pauseAfter(std::chrono::milliseconds waited);

    std::chrono::milliseconds timeout_;
    std::chrono::steady_clock::time_point start_{};  ///< of the wait that goes on
    std::minstd_rand random_{std::random_device{}()};
};

}  // namespace desk::embedded
