#pragma once

#include "platform/pointer.h"

namespace desk {

/// The pointer of an X11 desktop, moved as a mouse moves it. The server is the one that DISPLAY names.
class X11Pointer : public Pointer {
  public:
    void moveTo(std::int32_t x, std::int32_t y) override;
    void event(std::uint32_t flags, std::int32_t dx, std::int32_t dy) override;
};

}  // namespace desk
