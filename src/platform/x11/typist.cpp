#include "platform/x11/typist.h"

#include <X11/extensions/XTest.h>

#include <algorithm>

#include "base/failure.h"
#include "platform/x11/key_symbols.h"

namespace desk::x11 {

namespace {

using std::chrono::milliseconds;

/// For a program that has to learn what the spare keys mean, or to read what was typed on them.
constexpr milliseconds patience{2000};
/// For one that acts on a command; other programs than the one that is busy can be typed into then.
constexpr milliseconds patienceForCommands{500};

unsigned bitOf(Modifier modifier) {
    switch (modifier) {
        case Modifier::shift:
            return ShiftMask;
        case Modifier::control:
            return ControlMask;
        case Modifier::alt:
            break;
    }
    return Mod1Mask;
}

[[noreturn]] void refuse(const char* why) {
    throw RuntimeFailure(failure::permissionDenied, why);
}

int layoutInUse(Display* display) {
    XkbStateRec state{};
    XkbGetState(display, XkbUseCoreKbd, &state);
    return state.group;
}

template <class... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};

}  // namespace

Typist::Typist(Server& server)
    : server_(server),
      keyboards_(Keyboards::of(server.display())),
      map_(server.display(), keyboards_.synthetic, layoutInUse(server.display())),
      target_(server),
      off_(server.display(), keyboards_, map_),
      spare_(server.display(), keyboards_) {}

Typist::~Typist() {
    for (unsigned bit = 1; bit <= held_; bit <<= 1U)
        if ((held_ & bit) != 0) key(*map_.holding(bit), false);
    XSync(server_.display(), False);
}

void Typist::type(const std::vector<typing::Action>& actions) {
    Steps steps = stepsOf(actions);
    for (auto from = steps.begin(); from != steps.end();) {
        // As many steps as there are spare keys for.
        std::vector<KeySym> strange;
        auto to = from;
        for (; to != steps.end(); ++to) {
            const bool isStrange = to->kind == Step::Kind::press && to->stroke.code == 0;
            if (!isStrange || std::find(strange.begin(), strange.end(), to->symbol) != strange.end())
                continue;
            if (strange.size() == spare_.count()) break;
            strange.push_back(to->symbol);
        }
        if (!strange.empty()) lendSpareKeys(from, to, strange);
        for (; from != to; ++from) perform(*from);
        // Before the keys mean something else, what was typed on them must have been read.
        if (!strange.empty()) catchUp();
    }
}

Typist::Steps Typist::stepsOf(const std::vector<typing::Action>& actions) {
    Steps steps;
    unsigned held = 0;
    const auto commands = [&held] { return (held & (ControlMask | Mod1Mask)) != 0; };
    const Overloaded add{
        [&](const typing::Hold& hold) {
            held |= bitOf(hold.modifier);
            if (!map_.holding(bitOf(hold.modifier))) refuse("键盘布局没有所需的 Shift、Ctrl 或 Alt 键");
            steps.push_back({Step::Kind::hold, bitOf(hold.modifier), NoSymbol, {}});
        },
        [&](const typing::LetGo& go) {
            held &= ~bitOf(go.modifier);
            steps.push_back({Step::Kind::letGo, bitOf(go.modifier), NoSymbol, {}});
        },
        [&](const typing::Press& press) { steps.push_back(pressOf(symbolOf(press.key), press.times, true)); },
        [&](const typing::Type& type) {
            steps.push_back(pressOf(symbolOf(type.character), type.times, commands()));
        }};
    for (const auto& action : actions) std::visit(add, action);

    const bool anyStrange = std::any_of(steps.begin(), steps.end(), [](const Step& step) {
        return step.kind == Step::Kind::press && step.stroke.code == 0;
    });
    if (anyStrange && spare_.count() == 0) refuse("键盘布局没有空闲的键，不能输入布局以外的字符");
    if (anyStrange && target_.isOwn()) refuse("键盘在本程序自己的窗口上，不能输入布局以外的字符");
    return steps;
}

Typist::Step Typist::pressOf(KeySym symbol, int times, bool isCommand) const {
    return {Step::Kind::press, 0, symbol, map_.find(symbol).value_or(Stroke{}), times, isCommand};
}

void Typist::lendSpareKeys(Steps::iterator from, Steps::iterator to, const std::vector<KeySym>& symbols) {
    spare_.lend(symbols);
    for (auto step = from; step != to; ++step) {
        const auto found = std::find(symbols.begin(), symbols.end(), step->symbol);
        if (step->stroke.code == 0 && found != symbols.end())
            step->stroke = {spare_.code(static_cast<std::size_t>(found - symbols.begin())), 0};
    }
    catchUp();
}

void Typist::perform(const Step& step) {
    switch (step.kind) {
        case Step::Kind::hold:
            held_ |= step.modifier;
            return key(*map_.holding(step.modifier), true);
        case Step::Kind::letGo:
            held_ &= ~step.modifier;
            return key(*map_.holding(step.modifier), false);
        case Step::Kind::press:
            for (int i = 0; i < step.times; ++i) {
                requireTarget();
                off_.keepOff(held_);
                press(step.stroke);
                afterCommand_ = step.isCommand;
            }
    }
}

void Typist::press(const Stroke& stroke) {
    // Within the same millisecond a second press would look like a key that repeats itself.
    constexpr unsigned long apart = 2;
    const unsigned more = stroke.modifiers & ~held_;
    for (unsigned bit = 1; bit <= more; bit <<= 1U)
        if ((more & bit) != 0) key(*map_.holding(bit), true);
    key(stroke.code, true, stroke.code == last_ ? apart : 0);
    key(stroke.code, false);
    for (unsigned bit = 1; bit <= more; bit <<= 1U)
        if ((more & bit) != 0) key(*map_.holding(bit), false);
    last_ = stroke.code;
}

/// What is typed is meant for one window: another one that has come between gets nothing of it.
void Typist::requireTarget() {
    if (afterCommand_ && target_.tells() && target_.catchUp(patienceForCommands))
        server_.pingWindowManager(patienceForCommands);
    if (!target_.hasKeyboard()) refuse("输入中途键盘转到了另一个窗口，其余按键没有输入");
}

void Typist::catchUp() {
    if (!target_.catchUp(patience)) refuse("接收按键的程序没有响应");
}

void Typist::key(KeyCode code, bool down, unsigned long delay) {
    XTestFakeKeyEvent(server_.display(), code, down ? True : False, delay);
}

}  // namespace desk::x11
