#pragma once

#include <cstdint>

namespace desk {

/// The mouse pointer of the desktop.
class Pointer {
  public:
    /// What a mouse event does; more than one at once happens in this order.
    enum Flag : std::uint32_t {
        move = 0x01,
        leftDown = 0x02,
        leftUp = 0x04,
        rightDown = 0x08,
        rightUp = 0x10,
        middleDown = 0x20,
        middleUp = 0x40,
    };

    virtual ~Pointer() = default;
    /// Puts the pointer there, in pixels of the screen; at the screen's edge where that is outside. Fails
    /// with 70 where the desktop lets nobody move it.
    virtual void moveTo(std::int32_t x, std::int32_t y) = 0;
    /// A synthesised mouse event: `dx` and `dy` are how far a move goes from where the pointer is. Flags 0
    /// have no effect. Fails as moveTo() does.
    virtual void event(std::uint32_t flags, std::int32_t dx, std::int32_t dy) = 0;
};

}  // namespace desk
