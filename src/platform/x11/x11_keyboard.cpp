#include "platform/x11/x11_keyboard.h"

#include "platform/key_string.h"
#include "platform/x11/typist.h"

namespace desk {

std::string X11Keyboard::refusal() {
    return x11::Server().inputRefusal();
}

void X11Keyboard::send(std::string_view keyString) {
    const auto actions = readKeyString(keyString);
    x11::Server server;
    server.requireInput();
    if (!actions.empty()) x11::Typist(server).type(actions);
}

}  // namespace desk
