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
    const std::chrono::milliseconds pause(std::uniform_int_distribution<int>(1, 10)(self.random_));
    std::this_thread::sleep_for(std::min(pause, left));
    return 1;
}

}  // namespace desk::embedded
