#pragma once

#include "platform/keyboard.h"

namespace desk {

/// The keyboard of an X11 desktop. The server is the one that DISPLAY names; it is asked anew at each call.
class X11Keyboard : public Keyboard {
  public:
    std::string refusal() override;
    void send(std::string_view keyString) override;
};

}  // namespace desk
