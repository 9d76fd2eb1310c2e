#include "seat_process.h"

#include <spawn.h>
#include <sys/wait.h>

#include <filesystem>
#include <thread>

extern char** environ;

namespace desk {

namespace {

bool hasOpen(pid_t process, const std::string& path) {
    std::error_code gone;
    const std::filesystem::path descriptors = "/proc/" + std::to_string(process) + "/fd";
    for (std::filesystem::directory_iterator entry(descriptors, gone), end; !gone && entry != end;
         entry.increment(gone))
        if (std::filesystem::read_symlink(entry->path(), gone) == path) return true;
    return false;
}

bool hasEnded(pid_t process) {
    siginfo_t info{};
    return waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           info.si_pid == process;
}

}  // namespace

pid_t startSeat(const std::string& path, const std::string& name, int rows) {
    const auto count = std::to_string(rows);
    const char* const arguments[] = {SEAT_PROGRAM, path.c_str(), name.c_str(), count.c_str(), nullptr};
    pid_t process = 0;
    if (posix_spawn(&process, SEAT_PROGRAM, nullptr, nullptr, const_cast<char**>(arguments), environ) != 0)
        return -1;
    return process;
}

void awaitOpen(pid_t seat, const std::string& path) {
    while (!hasOpen(seat, path) && !hasEnded(seat)) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

int exitCode(pid_t seat) {
    int status = -1;
    waitpid(seat, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace desk
