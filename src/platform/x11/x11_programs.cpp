#include "platform/x11/x11_programs.h"

#include <algorithm>

#include "base/failure.h"
#include "platform/processes.h"
#include "platform/x11/server.h"

namespace desk {

void X11Programs::activate(std::string_view title) {
    x11::Server server;
    const auto windows = server.isConnected() ? server.topLevelWindows() : std::vector<Window>();
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [&](Window window) { return server.title(window) == title; });
    if (found == windows.end()) throw RuntimeFailure(failure::invalidCall, "无效的过程调用或参数");

    if (!server.hasWindowManager()) return server.raise(*found);
    constexpr std::chrono::milliseconds patience{1000};
    server.requestActivation(*found);
    server.awaitActive(*found, patience);
}

bool X11Programs::start(const std::string& program, const std::vector<std::string>& arguments) {
    return startProcess(program, arguments);
}

bool X11Programs::openForUser(const std::string& what) {
    constexpr std::chrono::milliseconds saysSoAtOnce{1500};
    return startProcess("xdg-open", {what}, saysSoAtOnce);
}

}  // namespace desk
