#include "platform/virtual_display.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "platform/eventually.h"

namespace desk {

namespace {

constexpr int comesUpWithin = 20'000;  ///< milliseconds; a loaded machine takes its time

/// The line that arrives on the descriptor, without its end; empty when none does.
std::string lineFrom(int descriptor) {
    std::string line;
    pollfd waiting{descriptor, POLLIN, 0};
    for (char byte = 0;
         ::poll(&waiting, 1, comesUpWithin) == 1 && ::read(descriptor, &byte, 1) == 1 && byte != '\n';)
        line += byte;
    return line;
}

}  // namespace

VirtualDisplay::VirtualDisplay(Manager manager) {
    if (const char* display = std::getenv("DISPLAY")) former_ = display;
    // A display of its own belongs to no session: a library that asks for the session's bus would find the
    // machine's, or try to start one, which leaks in there where that fails.
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return;
    run({"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", "800x600x24", "-nolisten", "tcp",
         "-noreset"});
    ::close(ends[1]);
    // The number comes only when the server takes connections.
    const std::string number = lineFrom(ends[0]);
    ::close(ends[0]);
    if (number.empty()) return;
    name_ = ":" + number;
    ::setenv("DISPLAY", name_.c_str(), 1);
    if (manager == Manager::openbox) startManager();
}

/// A window that is mapped while the window manager starts may never get managed, so its word is awaited that
/// it has started.
void VirtualDisplay::startManager() {
    namespace fs = std::filesystem;
    std::string folder = (fs::temp_directory_path() / "desk-XXXXXX").string();
    if (::mkdtemp(folder.data()) == nullptr) return;
    run({"openbox", "--sm-disable", "--startup", "touch " + folder + "/started"});
    becomesTrue([&] { return fs::exists(folder + "/started"); });
    fs::remove_all(folder);
}

VirtualDisplay::~VirtualDisplay() {
    // The window manager goes before the display that it works on.
    std::reverse(running_.begin(), running_.end());
    for (const pid_t process : running_) {
        ::kill(process, SIGTERM);
        ::waitpid(process, nullptr, 0);
    }
    if (former_.empty())
        ::unsetenv("DISPLAY");
    else
        ::setenv("DISPLAY", former_.c_str(), 1);
}

pid_t VirtualDisplay::run(const std::vector<std::string>& command) {
    std::vector<char*> list;
    for (const auto& word : command) list.push_back(const_cast<char*>(word.c_str()));
    list.push_back(nullptr);
    const pid_t process = ::fork();
    if (process == 0) {
        // The server's chatter about its keyboard is no business of the test's output.
        const int nowhere = ::open("/dev/null", O_RDWR);
        for (const int chatter : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nowhere, chatter);
        ::execvp(list.front(), list.data());
        ::_exit(127);
    }
    if (process > 0) running_.push_back(process);
    return process;
}

}  // namespace desk
