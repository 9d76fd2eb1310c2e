#include "platform/form_in_front.h"

#include <stdlib.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "platform/eventually.h"
#include "platform/x11/server.h"
#include "platform/x11/x11_keyboard.h"

namespace desk {

namespace {

constexpr const char* title = "表单";

}  // namespace

FormInFront::FormInFront() : folder_((std::filesystem::temp_directory_path() / "desk-XXXXXX").string()) {
    if (::mkdtemp(folder_.data()) == nullptr) return;
    ::setenv("FORM_JOURNAL", journal().c_str(), 1);
    process_ = programs_.startMinimised(FORM_PROGRAM);
    up_ = becomesTrue([this] { return programs_.hasWindow(title); }) && bring();
}

FormInFront::~FormInFront() {
    if (process_ != 0) ::kill(static_cast<pid_t>(process_), SIGTERM);
    becomesTrue([this] { return !programs_.isRunning(process_); });
    std::filesystem::remove_all(folder_);
}

/// That the window manager takes a window for the active one does not mean that it has the keyboard yet.
bool FormInFront::bring() {
    programs_.activate(title);
    const bool hasKeyboard = becomesTrue([] {
        x11::Server server;
        return server.title(server.topLevelOf(server.focus())) == title;
    });
    if (hasKeyboard) X11Keyboard().send("{F12}");
    return hasKeyboard;
}

std::vector<std::string> FormInFront::lines(std::size_t count) const {
    std::vector<std::string> all;
    becomesTrue([&] {
        all.clear();
        std::ifstream file(journal());
        for (std::string line; std::getline(file, line);) all.push_back(line);
        return all.size() >= count;
    });
    return all;
}

void FormInFront::forgetLines() const {
    std::filesystem::remove(journal());
}

}  // namespace desk
