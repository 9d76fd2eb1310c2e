#include "platform/virtual_display.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "platform/eventually.h"

namespace desk {

VirtualDisplay::VirtualDisplay(Manager manager) {
    // A display of its own belongs to no session: a library that asks for the session's bus would find the
    // machine's, or try to start one, which leaks in there where that fails.
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) return;
    run("Xvfb -displayfd " + std::to_string(ends[1]) + " -screen 0 800x600x24 -nolisten tcp -noreset");
    ::close(ends[1]);
    // The number comes only when the server takes connections.
    std::string name = ":";
    for (char byte = 0; ::read(ends[0], &byte, 1) == 1 && byte != '\n';) name += byte;
    ::close(ends[0]);
    up_ = name != ":";
    if (!up_) return;
    ::setenv("DISPLAY", name.c_str(), 1);
    if (manager == Manager::openbox) startManager();
}

/// A window that is mapped while the window manager starts may never get managed, so its word is awaited that
/// it has started.
void VirtualDisplay::startManager() {
    namespace fs = std::filesystem;
    std::string folder = (fs::temp_directory_path() / "desk-XXXXXX").string();
    if (::mkdtemp(folder.data()) == nullptr) return;
    run("openbox --sm-disable --startup 'touch " + folder + "/started'");
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
    ::unsetenv("DISPLAY");
}

void VirtualDisplay::run(const std::string& command) {
    // Their chatter about the keyboard is no business of the test's output.
    const auto quiet = "exec " + command + " </dev/null >/dev/null 2>&1";
    const pid_t process = ::fork();
    if (process == 0) {
        ::execl("/bin/sh", "sh", "-c", quiet.c_str(), nullptr);
        ::_exit(127);
    }
    if (process > 0) running_.push_back(process);
}

}  // namespace desk
