#include "ui/screens.h"

#include <algorithm>

#include "base/failure.h"
#include "ui/desktop.h"

namespace desk {

Screens::~Screens() {
    while (!screens_.empty()) {
        Screen& screen = *screens_.back();
        putAway(screen);
        desktop_.close(screen);
    }
    desktop_.dropClosed();
    // The first that came goes last: the others may have been made by it.
    while (!unloaded_.empty()) unloaded_.pop_back();
}

void Screens::offer(std::string name, Maker maker) {
    makers_[std::move(name)] = std::move(maker);
}

Screen& Screens::get(std::string_view name) {
    if (Screen* screen = loaded(name)) return *screen;
    const auto maker = makers_.find(name);
    if (maker == makers_.end()) throw RuntimeFailure(424, "要求对象");
    Screen& screen = *screens_.emplace_back(maker->second());
    try {
        screen.load();
    } catch (...) {
        if (putAway(screen)) desktop_.close(screen);
        throw;
    }
    return screen;
}

Screen* Screens::loaded(std::string_view name) const {
    const auto found = std::find_if(screens_.begin(), screens_.end(),
                                    [&](const auto& screen) { return screen->name() == name; });
    return found == screens_.end() ? nullptr : found->get();
}

void Screens::open(std::string_view name) {
    Screen& screen = get(name);
    if (screen.isThere()) desktop_.show(screen);
    if (screen.isThere()) desktop_.bringToFront(screen);
}

void Screens::unload(Screen& screen) {
    if (!putAway(screen)) return;
    screen.unload();
    screen.gone();
    desktop_.close(screen);
}

bool Screens::putAway(Screen& screen) {
    const auto found = std::find_if(screens_.begin(), screens_.end(),
                                    [&](const auto& held) { return held.get() == &screen; });
    if (found == screens_.end()) return false;
    unloaded_.push_back(std::move(*found));
    screens_.erase(found);
    *screen.there_ = false;
    return true;
}

void Screens::dropUnloaded() {
    const auto dropped = std::exchange(unloaded_, {});
}

Screen* Screens::activeChild() const {
    const auto found = std::find_if(screens_.rbegin(), screens_.rend(),
                                    [](const auto& screen) { return screen->kind() == WindowKind::child; });
    return found == screens_.rend() ? nullptr : found->get();
}

void Screens::activated(Screen& screen) {
    const auto found = std::find_if(screens_.begin(), screens_.end(),
                                    [&](const auto& held) { return held.get() == &screen; });
    if (found == screens_.end()) return;
    std::rotate(found, found + 1, screens_.end());
    screen.activate();
}

}  // namespace desk
