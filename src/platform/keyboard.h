#pragma once

#include <string>
#include <string_view>

namespace desk {

/// The keyboard of the desktop, on which the program types as a person would.
class Keyboard {
  public:
    virtual ~Keyboard() = default;
    /// Why no program can type on this desktop, in words for the person at it; empty where one can.
    virtual std::string refusal() = 0;
    /// Types into the window that has the keyboard: `keyString` is read as platform/key_string.h says. A
    /// wrong one fails with 5, its text naming the position, before anything is typed. Fails with 70 where
    /// the desktop lets nobody type, or where another window gets the keyboard in the midst.
    virtual void send(std::string_view keyString) = 0;
};

}  // namespace desk
