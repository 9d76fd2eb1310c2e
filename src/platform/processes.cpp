#include "platform/processes.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>

#include "platform/descriptor.h"

namespace desk {

namespace {

std::vector<char*> argumentList(const std::string& program, const std::vector<std::string>& arguments) {
    std::vector<char*> list;
    list.push_back(const_cast<char*>(program.c_str()));
    for (const auto& argument : arguments) list.push_back(const_cast<char*>(argument.c_str()));
    list.push_back(nullptr);
    return list;
}

bool endedWell(int status) {
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// What is written into the pipe to the starting process. Ends of processes tell it nothing where it ignores
/// SIGCHLD.
constexpr char runs = '+';
constexpr char doesNot = '!';

void report(const Descriptor& pipe, char what) {
    [[maybe_unused]] const auto written = ::write(pipe.number(), &what, 1);
}

/// The program itself; comes back never. The pipe is closed by the start of the program.
[[noreturn]] void become(const std::vector<char*>& list, const Descriptor& pipe) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    ::execvp(list.front(), list.data());
    report(pipe, doesNot);
    ::_exit(127);
}

/// Whether the child runs on, or ended well, `watched` milliseconds from now.
bool standsTheWatch(pid_t child, std::chrono::milliseconds watched) {
    constexpr std::chrono::milliseconds look{20};
    constexpr timespec pause{0, std::chrono::nanoseconds(look).count()};
    for (auto left = watched; left.count() > 0; left -= look) {
        int status = 0;
        if (::waitpid(child, &status, WNOHANG) == child) return endedWell(status);
        ::nanosleep(&pause, nullptr);
    }
    return true;
}

/// The process between this one and the program: by ending it leaves its child to the system. Until then only
/// calls are made that are safe in the copy of a program with threads.
[[noreturn]] void standBetween(const std::vector<char*>& list, const Descriptor& pipe,
                               std::chrono::milliseconds watched) {
    ::setsid();
    // Whoever ignores it sees no child end; neither this process nor the program is to inherit that.
    std::signal(SIGCHLD, SIG_DFL);
    const pid_t child = ::fork();
    if (child == 0) become(list, pipe);
    report(pipe, child > 0 && standsTheWatch(child, watched) ? runs : doesNot);
    ::_exit(0);
}

/// All that is reported until nobody is left who could.
std::string reports(const Descriptor& pipe) {
    std::string all;
    while (true) {
        char report = 0;
        const ssize_t count = ::read(pipe.number(), &report, 1);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return all;
        all += report;
    }
}

}  // namespace

bool startProcess(const std::string& program, const std::vector<std::string>& arguments,
                  std::chrono::milliseconds watched) {
    std::array<int, 2> ends{};
    if (program.empty() || ::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
    const Descriptor reported(ends[0]);
    Descriptor reporting(ends[1]);

    const auto list = argumentList(program, arguments);
    const pid_t between = ::fork();
    if (between < 0) return false;
    if (between == 0) standBetween(list, reporting, watched);

    reporting.close();
    const bool started = reports(reported) == std::string(1, runs);
    while (::waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
    }
    return started;
}

}  // namespace desk
