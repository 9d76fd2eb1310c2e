#include <benchmark/benchmark.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "platform/x11/server.h"

extern char** environ;

namespace {

using Clock = std::chrono::steady_clock;

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Seconds from the start of the program until a window of that title is up; the program is ended then.
double secondsToWindow(const char* program, const std::string& title) {
    desk::x11::Server server;
    const auto start = Clock::now();
    const char* const arguments[] = {program, nullptr};
    pid_t process = 0;
    if (posix_spawn(&process, program, nullptr, nullptr, const_cast<char**>(arguments), environ) != 0)
        return -1;
    double seconds = -1;
    while (seconds < 0 && Clock::now() - start < std::chrono::seconds(20)) {
        for (const auto window : server.topLevelWindows())
            if (server.title(window) == title)
                seconds = std::chrono::duration<double>(Clock::now() - start).count();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    return seconds;
}

/// The one after the other each time, so that both meet the machine as it is at that moment. The time is that
/// of the login; beside it stands that of an empty window, and how many times longer the login takes, by the
/// medians.
void startToVisibleLogin(benchmark::State& state) {
    std::vector<double> empty, login;
    for (auto _ : state) {
        empty.push_back(secondsToWindow(EMPTY_PROGRAM, "empty"));
        login.push_back(secondsToWindow(DESK_PROGRAM, "鸿序楼台"));
        if (empty.back() < 0 || login.back() < 0) return state.SkipWithError("no window");
        state.SetIterationTime(login.back());
    }
    state.counters["empty_ms"] = 1000 * median(empty);
    state.counters["login_ms"] = 1000 * median(login);
    state.counters["ratio"] = median(login) / median(empty);
}

// Run on a display with a window manager: scripts/on-virtual-display build/release/bin/start_bench
BENCHMARK(startToVisibleLogin)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(40);

}  // namespace
