#include "platform/x11/target_window.h"

#include <algorithm>
#include <thread>

namespace desk::x11 {

TargetWindow::TargetWindow(Server& server)
    : server_(server),
      focus_(server.focus()),
      topLevel_(server.topLevelOf(focus_)),
      tells_(server.answersPings(topLevel_) && !server.isOwn(topLevel_)) {}

bool TargetWindow::hasKeyboard() {
    const Window focus = server_.focus();
    if (focus == focus_) return true;
    if (server_.topLevelOf(focus) != topLevel_) return false;
    focus_ = focus;
    return true;
}

bool TargetWindow::isOwn() {
    return server_.isOwn(topLevel_);
}

bool TargetWindow::catchUp(std::chrono::milliseconds patience) {
    if (tells_) return server_.ping(topLevel_, patience);
    constexpr std::chrono::milliseconds aWhile{150};
    std::this_thread::sleep_for(std::min(aWhile, patience));
    return true;
}

}  // namespace desk::x11
