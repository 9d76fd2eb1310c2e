#include "platform/x11/x11_programs.h"

#include <algorithm>

#include "base/failure.h"
#include "platform/x11/server.h"

namespace desk {

namespace {

std::optional<Window> windowTitled(x11::Server& server, std::string_view title) {
    if (!server.isConnected()) return std::nullopt;
    const auto windows = server.topLevelWindows();
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [&](Window window) { return server.title(window) == title; });
    if (found == windows.end()) return std::nullopt;
    return *found;
}

}  // namespace

bool X11Programs::hasWindow(std::string_view title) {
    x11::Server server;
    return windowTitled(server, title).has_value();
}

void X11Programs::activate(std::string_view title) {
    x11::Server server;
    const auto found = windowTitled(server, title);
    if (!found) throw RuntimeFailure(failure::invalidCall, "无效的过程调用或参数");

    if (!server.hasWindowManager()) return server.raise(*found);
    constexpr std::chrono::milliseconds patience{1000};
    server.requestActivation(*found);
    server.awaitActive(*found, patience);
}

bool X11Programs::start(const std::string& program, const std::vector<std::string>& arguments) {
    return startProcess(program, arguments);
}

std::int64_t X11Programs::startMinimised(const std::string& program) {
    auto started = RunningProgram::start(program);
    if (!started) throw RuntimeFailure(failure::fileNotFound, "文件未找到：" + program);
    const std::int64_t process = started->process();
    running_.insert_or_assign(process, *std::move(started));
    return process;
}

bool X11Programs::isRunning(std::int64_t process) {
    const auto found = running_.find(process);
    return found != running_.end() && found->second.isRunning();
}

bool X11Programs::openForUser(const std::string& what) {
    constexpr std::chrono::milliseconds saysSoAtOnce{1500};
    return startProcess("xdg-open", {what}, saysSoAtOnce);
}

}  // namespace desk
