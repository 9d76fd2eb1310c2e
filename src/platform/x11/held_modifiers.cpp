#include "platform/x11/held_modifiers.h"

#include <X11/XKBlib.h>
#include <X11/extensions/XTest.h>

#include <array>

namespace desk::x11 {

namespace {

constexpr unsigned allModifiers = 0xFF;

XkbStateRec stateOf(Display* display) {
    XkbStateRec state{};
    XkbGetState(display, XkbUseCoreKbd, &state);
    return state;
}

}  // namespace

ModifiersOff::ModifiersOff(Display* display, const Keyboards& keyboards, const KeyMap& map)
    : display_(display), keyboards_(keyboards), map_(map) {
    const XkbStateRec state = stateOf(display_);
    locked_ = state.locked_mods;
    latched_ = state.latched_mods;
    takeFromPrograms();
    takeFromPersons();
    XkbLatchModifiers(display_, XkbUseCoreKbd, allModifiers, 0);
    XkbLockModifiers(display_, XkbUseCoreKbd, allModifiers, 0);
}

ModifiersOff::~ModifiersOff() {
    const unsigned switched = stateOf(display_).locked_mods;
    XkbLockModifiers(display_, XkbUseCoreKbd, allModifiers, locked_ ^ switched);
    XkbLatchModifiers(display_, XkbUseCoreKbd, allModifiers, latched_);
    for (const KeyCode code : held_) XTestFakeKeyEvent(display_, code, True, CurrentTime);
    // Whoever has let go in the meantime is not to find the key stuck, so the keyboards themselves are asked.
    for (const int keyboard : keyboards_.physical)
        for (const KeyCode code : modifiersDown(keyboard)) pressAgain(display_, keyboard, code);
    XSync(display_, False);
}

void ModifiersOff::keepOff(unsigned butFor) {
    if (stateOf(display_).base_mods != butFor) takeFromPersons();
}

std::vector<KeyCode> ModifiersOff::modifiersDown(int keyboard) const {
    std::vector<KeyCode> down = keysDown(display_, keyboard);
    std::erase_if(down, [this](KeyCode code) { return !map_.isModifier(code); });
    return down;
}

/// What the synthetic keyboard has down is not always held: a person who lets go of the same key ends that
/// for all programs, but not there, where it could then not be pressed again.
void ModifiersOff::takeFromPrograms() {
    std::array<char, 32> down{};
    XQueryKeymap(display_, down.data());
    for (const KeyCode code : modifiersDown(keyboards_.synthetic)) {
        if ((down[code / 8] >> (code % 8) & 1) != 0) held_.push_back(code);
        XTestFakeKeyEvent(display_, code, False, CurrentTime);
    }
}

/// A key that comes up at the synthetic keyboard is up for all programs, wherever it is down.
void ModifiersOff::takeFromPersons() {
    for (const int keyboard : keyboards_.physical)
        for (const KeyCode code : modifiersDown(keyboard))
            XTestFakeKeyEvent(display_, code, False, CurrentTime);
}

}  // namespace desk::x11
