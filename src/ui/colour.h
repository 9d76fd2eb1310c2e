#pragma once

#include <cstdint>

namespace desk {

/// A colour as the database holds it: red in the lowest byte, then green, then blue.
using Colour = std::int32_t;

constexpr Colour rgb(int red, int green, int blue) {
    return red | green << 8 | blue << 16;
}
constexpr int redOf(Colour colour) {
    return colour & 255;
}
constexpr int greenOf(Colour colour) {
    return (colour & 65535) / 256;
}
constexpr int blueOf(Colour colour) {
    return (colour / 65536) & 255;
}

/// The colour of an empty swatch, and of a grid cell that nobody has coloured.
inline constexpr Colour windowColour = rgb(255, 255, 255);

}  // namespace desk
