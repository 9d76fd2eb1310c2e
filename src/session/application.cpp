#include "session/application.h"

#include <fmt/format.h>

#include "base/text.h"
#include "session/login.h"
#include "ui/desktop.h"

namespace desk {

Application::Application(Desktop& shownBy, Platform runsOn)
    : desktop(shownBy), platform(runsOn), screens(shownBy) {}

void Application::start(std::string commandLine) {
    命令行参数 = std::move(commandLine);
    screens.get(FrmLogin::screenName);
    // A session that was handed over has the main window up by now, and the login screen is gone.
    if (screens.loaded(FrmLogin::screenName) != nullptr) screens.open(FrmLogin::screenName);
}

void Application::tell(std::string_view text) {
    desktop.messageBox({std::string(text), {}, Icon::none, Buttons::ok});
}

void Application::inform(std::string_view text, std::string_view title) {
    desktop.messageBox({std::string(text), std::string(title), Icon::information, Buttons::ok});
}

void Application::saved(std::string_view what) {
    desktop.notify(fmt::format("已保存 {}", trimmed(what)));
}

void Application::foundNothing() {
    desktop.notify("没有保存：要修改的记录已不存在");
}

bool Application::confirm(std::string_view text) {
    return desktop.messageBox({std::string(text), "提醒", Icon::question, Buttons::yesNo}) == Answer::yes;
}

bool Application::confirmDeletion(std::string_view text) {
    return desktop.messageBox({std::string(text), "提醒", Icon::question, Buttons::yesNo, Answer::no}) ==
           Answer::yes;
}

}  // namespace desk
