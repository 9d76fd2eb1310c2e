#include "money/tax_machine.h"

#include "base/number.h"
#include "platform/clipboard.h"
#include "platform/files.h"
#include "platform/keyboard.h"
#include "platform/pointer.h"
#include "platform/programs.h"

namespace desk {

namespace {

constexpr int tickMilliseconds = 250;

constexpr std::uint32_t pressing = 0;
constexpr std::uint32_t releasing = 0;
constexpr std::uint32_t moving = 0;

}  // namespace

税控机器::税控机器(Screen& screen, Application& app)
    : 计时(screen, "计时", tickMilliseconds), screen_(screen), app_(app) {
    计时.setEnabled(false);
    计时.tick += [this] { 计时次数_ = toInt16(计时次数_ + 1.0); };
}

void 税控机器::延时(const std::int16_t& n) {
    // Where one wait runs inside another, the outer one still needs the timer.
    const bool outer = 计时.enabled();
    计时次数_ = 0;
    计时.setEnabled(true);
    while (计时次数_ < n) {
        app_.desktop.awaitEvents();
        goOn();
    }
    计时.setEnabled(outer);
}

std::string 税控机器::refusal() {
    return app_.platform.keyboard.refusal();
}

bool 税控机器::hasWindow(std::string_view title) {
    const bool found = app_.platform.programs.hasWindow(title);
    goOn();
    return found;
}

bool 税控机器::hasFile(std::string_view path) {
    return app_.platform.files.exists(path);
}

void 税控机器::activate(std::string_view title) {
    app_.platform.programs.activate(title);
    goOn();
}

void 税控机器::start(const std::string& program) {
    const auto process = app_.platform.programs.startMinimised(program);
    goOn();
    // Whether it has ended again is looked at, but the window is what counts.
    static_cast<void>(app_.platform.programs.isRunning(process));
    goOn();
}

void 税控机器::send(std::string_view keyString) {
    app_.platform.keyboard.send(keyString);
    goOn();
}

void 税控机器::moveTo(std::int32_t x, std::int32_t y) {
    app_.platform.pointer.moveTo(x, y);
    goOn();
}

void 税控机器::mouse(std::uint32_t flags, std::int32_t dx, std::int32_t dy) {
    app_.platform.pointer.event(flags, dx, dy);
    goOn();
}

void 税控机器::moveBy(std::int32_t dx, std::int32_t dy) {
    mouse(moving, dx, dy);
}

void 税控机器::press() {
    mouse(pressing, 0, 0);
}

void 税控机器::release() {
    mouse(releasing, 0, 0);
}

void 税控机器::click() {
    mouse(pressing + releasing, 0, 0);
}

void 税控机器::clearClipboard() {
    app_.platform.clipboard.clear();
    goOn();
}

std::string 税控机器::clipboardText() {
    std::string text = app_.platform.clipboard.text();
    goOn();
    return text;
}

void 税控机器::letEventsRun() {
    app_.desktop.letEventsRun();
    goOn();
}

void 税控机器::bringToFront() {
    app_.desktop.bringToFront(screen_);
    goOn();
}

void 税控机器::tell(std::string_view text) {
    app_.tell(text);
    goOn();
}

void 税控机器::goOn() const {
    if (!screen_.isThere()) throw 窗体已关闭();
}

}  // namespace desk
