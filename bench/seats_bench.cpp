#include <benchmark/benchmark.h>

#include <atomic>
#include <filesystem>
#include <thread>

#include "db/embedded/embedded.h"
#include "db/embedded/sqlite.h"

namespace {

using namespace desk;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int seatCount = 8;
constexpr auto span = 30s;
constexpr auto timeout = 30s;

/// A database file that is gone at the end.
struct File {
    std::string path = (std::filesystem::temp_directory_path() / "desk-seats-bench.db").string();
    File() {
        std::filesystem::remove(path);
        embedded::createDatabase(path);
    }
    ~File() { std::filesystem::remove(path); }
};

enum class Waiting { ours, sqlites };

/// Writes without a pause until the time is over; the longest that it had to wait for its turn.
Clock::duration writeWithoutPause(const std::string& path, Waiting waiting, Clock::time_point end,
                                  std::atomic<long>& written) {
    const embedded::Sqlite sqlite(path, embedded::Sqlite::Missing::isFailure, timeout);
    if (waiting == Waiting::sqlites)
        sqlite3_busy_timeout(sqlite.handle(), static_cast<int>(std::chrono::milliseconds(timeout).count()));
    Clock::duration longest{};
    while (Clock::now() < end) {
        const auto start = Clock::now();
        sqlite.run("BEGIN IMMEDIATE");
        longest = std::max(longest, Clock::now() - start);
        sqlite.run("INSERT INTO \"YZ_区域设置\" (区域名称) VALUES ('浦东')");
        sqlite.run("COMMIT");
        ++written;
    }
    return longest;
}

void seatsThatWriteWithoutPause(benchmark::State& state, Waiting waiting) {
    for (auto _ : state) {
        const File file;
        std::atomic<long> written = 0;
        std::atomic<Clock::rep> longest = 0;
        {
            std::vector<std::jthread> seats;
            const auto end = Clock::now() + span;
            for (int seat = 0; seat < seatCount; ++seat)
                seats.emplace_back([&] {
                    const auto waited = writeWithoutPause(file.path, waiting, end, written).count();
                    for (auto known = longest.load(); known < waited;)
                        if (longest.compare_exchange_weak(known, waited)) break;
                });
        }
        state.counters["longest_wait_ms"] =
            std::chrono::duration<double, std::milli>(Clock::duration(longest.load())).count();
        state.counters["writes"] = static_cast<double>(written);
    }
}

BENCHMARK_CAPTURE(seatsThatWriteWithoutPause, random_pauses, Waiting::ours)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();
BENCHMARK_CAPTURE(seatsThatWriteWithoutPause, growing_pauses, Waiting::sqlites)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();

}  // namespace
