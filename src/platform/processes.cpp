#include "platform/processes.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>

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

/// What is written into the pipe to the starting process: the number of the program's process, and this where
/// it did not come to run. Ends of processes tell it nothing where it ignores SIGCHLD.
constexpr char doesNot = '!';

void reportFailure(const Descriptor& pipe) {
    [[maybe_unused]] const auto written = ::write(pipe.number(), &doesNot, 1);
}

void reportRuns(const Descriptor& pipe, pid_t process) {
    [[maybe_unused]] const auto written = ::write(pipe.number(), &process, sizeof process);
}

/// The program itself; comes back never. The pipe is closed by the start of the program.
[[noreturn]] void become(const std::vector<char*>& list, const Descriptor& pipe) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    ::execvp(list.front(), list.data());
    reportFailure(pipe);
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
    if (child > 0 && standsTheWatch(child, watched))
        reportRuns(pipe, child);
    else
        reportFailure(pipe);
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

/// The program's process; nullopt where it cannot be started, or fails while it is watched.
std::optional<pid_t> started(const std::string& program, const std::vector<std::string>& arguments,
                             std::chrono::milliseconds watched) {
    std::array<int, 2> ends{};
    if (program.empty() || ::pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
    const Descriptor reported(ends[0]);
    Descriptor reporting(ends[1]);

    const auto list = argumentList(program, arguments);
    const pid_t between = ::fork();
    if (between < 0) return std::nullopt;
    if (between == 0) standBetween(list, reporting, watched);

    reporting.close();
    const std::string all = reports(reported);
    while (::waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
    }
    pid_t process = 0;
    if (all.size() != sizeof process) return std::nullopt;
    std::memcpy(&process, all.data(), sizeof process);
    return process;
}

}  // namespace

bool startProcess(const std::string& program, const std::vector<std::string>& arguments,
                  std::chrono::milliseconds watched) {
    return started(program, arguments, watched).has_value();
}

std::optional<RunningProgram> RunningProgram::start(const std::string& program) {
    const auto process = started(program, {}, {});
    if (!process) return std::nullopt;
    return RunningProgram(*process, Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, *process, 0))));
}

bool RunningProgram::isRunning() const {
    // Without a descriptor it had ended before one could be had.
    pollfd end{end_.number(), POLLIN, 0};
    return end_.isOpen() && ::poll(&end, 1, 0) == 0;
}

}  // namespace desk
