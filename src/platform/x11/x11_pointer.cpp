#include "platform/x11/x11_pointer.h"

#include "platform/x11/server.h"

namespace desk {

void X11Pointer::moveTo(std::int32_t x, std::int32_t y) {
    x11::Server server;
    server.requireInput();
    server.movePointer(x, y);
}

void X11Pointer::event(std::uint32_t flags, std::int32_t dx, std::int32_t dy) {
    if (flags == 0) return;
    x11::Server server;
    server.requireInput();
    if ((flags & move) != 0) server.movePointerBy(dx, dy);
    constexpr struct {
        std::uint32_t down;
        std::uint32_t up;
        unsigned button;
    } buttons[] = {{leftDown, leftUp, 1}, {rightDown, rightUp, 3}, {middleDown, middleUp, 2}};
    for (const auto& each : buttons) {
        if ((flags & each.down) != 0) server.pressButton(each.button, true);
        if ((flags & each.up) != 0) server.pressButton(each.button, false);
    }
}

}  // namespace desk
