#include "db/embedded/patience.h"

#include <sqlite3.h>

#include <algorithm>
#include <thread>

namespace desk::embedded {

void Patience::serve(sqlite3* database) {
    sqlite3_busy_handler(database, busy, this);
}

int Patience::busy(void* patience, int attempts) {
    auto& self = *static_cast<Patience*>(patience);
    const auto now = std::chrono::steady_clock::now();
    if (attempts == 0) self.start_ = now;
    const auto left =
        self.timeout_ - std::chrono::duration_cast<std::chrono::milliseconds>(now - self.start_);
    if (left <= std::chrono::milliseconds::zero()) return 0;
    std::this_thread::sleep_for(
        std::min<std::chrono::microseconds>(self.pauseAfter(self.timeout_ - left), left));
    return 1;
}

std::chrono::microseconds Patience::pauseAfter(std::chrono::milliseconds waited) {
    constexpr long firstPause = 10'000;  // µs
    constexpr long halvedAfter = 250;    // ms
    const long longest = firstPause * halvedAfter / (halvedAfter + static_cast<long>(waited.count()));
    return std::chrono::microseconds(std::uniform_int_distribution<long>(longest / 10, longest)(random_));
}

}  // namespace desk::embedded
