#include "platform/clock.h"

#include <chrono>
#include <ctime>

namespace desk {

DateTime SystemClock::now() const {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    localtime_r(&seconds, &local);
    DateTime moment(local.tm_year + 1900, static_cast<unsigned>(local.tm_mon + 1),
                    static_cast<unsigned>(local.tm_mday));
    moment.time = std::chrono::hours(local.tm_hour) + std::chrono::minutes(local.tm_min) +
                  std::chrono::seconds(local.tm_sec % 60);
    return moment;
}

}  // namespace desk
