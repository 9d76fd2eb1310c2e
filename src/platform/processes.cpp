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

/// The program itself; comes back never. `failed` is closed by the start of the program, and written to
/// without one.
[[noreturn]] void become(const std::vector<char*>& list, const Descriptor& failed) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    ::execvp(list.front(), list.data());
    [[maybe_unused]] const auto written = ::write(failed.number(), "!", 1);
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
[[noreturn]] void standBetween(const std::vector<char*>& list, const Descriptor& failed,
                               std::chrono::milliseconds watched) {
    ::setsid();
    const pid_t child = ::fork();
    if (child == 0) become(list, failed);
    ::_exit(child > 0 && standsTheWatch(child, watched) ? 0 : 1);
}

}  // namespace

bool startProcess(const std::string& program, const std::vector<std::string>& arguments,
                  std::chrono::milliseconds watched) {
    std::array<int, 2> ends{};
    if (program.empty() || ::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
    const Descriptor failures(ends[0]);
    Descriptor failed(ends[1]);

    const auto list = argumentList(program, arguments);
    const pid_t between = ::fork();
    if (between < 0) return false;
    if (between == 0) standBetween(list, failed, watched);

    failed.close();
    int status = 0;
    while (::waitpid(between, &status, 0) < 0 && errno == EINTR) {
    }
    char failure = 0;
    ssize_t count = 0;
    do count = ::read(failures.number(), &failure, 1);
    while (count < 0 && errno == EINTR);
    return endedWell(status) && count == 0;
}

}  // namespace desk
