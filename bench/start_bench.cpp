#include <benchmark/benchmark.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <string>
#include <thread>

#include "platform/x11/server.h"

extern char** environ;

namespace {

using Clock = std::chrono::steady_clock;

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

void measure(benchmark::State& state, const char* program, const char* title) {
    for (auto _ : state) {
        const double seconds = secondsToWindow(program, title);
        if (seconds < 0) return state.SkipWithError("no window");
        state.SetIterationTime(seconds);
    }
}

void startToVisibleLogin(benchmark::State& state) {
    measure(state, DESK_PROGRAM, "鸿序楼台");
}
void startOfAnEmptyWindow(benchmark::State& state) {
    measure(state, EMPTY_PROGRAM, "empty");
}

// Run on a display with a window manager: scripts/on-virtual-display build/release/bin/start_bench
BENCHMARK(startOfAnEmptyWindow)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
BENCHMARK(startToVisibleLogin)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);

}  // namespace
