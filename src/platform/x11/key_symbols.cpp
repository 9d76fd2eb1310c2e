#include "platform/x11/key_symbols.h"

#define XK_MISCELLANY
#include <X11/keysymdef.h>

#include <array>

namespace desk::x11 {

KeySym symbolOf(Key key) {
    if (key >= Key::f1) return XK_F1 + static_cast<KeySym>(key) - static_cast<KeySym>(Key::f1);
    // In the order of the names.
    constexpr std::array<KeySym, static_cast<std::size_t>(Key::f1)> symbols = {
        XK_BackSpace, XK_Break, XK_Caps_Lock, XK_Delete,      XK_Down, XK_End,      XK_Return,
        XK_Escape,    XK_Help,  XK_Home,      XK_Insert,      XK_Left, XK_Num_Lock, XK_Next,
        XK_Prior,     XK_Print, XK_Right,     XK_Scroll_Lock, XK_Tab,  XK_Up,
    };
    return symbols[static_cast<std::size_t>(key)];
}

KeySym symbolOf(char32_t character) {
    constexpr char32_t latinOne = 0x100;  ///< below it a symbol has the number of its character
    constexpr KeySym unicode = 0x01000000;
    return character < latinOne ? character : unicode + character;
}

}  // namespace desk::x11
