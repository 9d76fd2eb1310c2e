#include "ui/picture.h"

#include <algorithm>
#include <cmath>

namespace desk {

namespace {

constexpr std::uint32_t opaque = 0xFF000000U;

std::uint32_t pixelOf(Colour colour) {
    return opaque | static_cast<std::uint32_t>(redOf(colour)) << 16 |
           static_cast<std::uint32_t>(greenOf(colour)) << 8 | static_cast<std::uint32_t>(blueOf(colour));
}

/// `part` 256ths of `b`, the rest of `a`, channel by channel.
std::uint32_t mixed(std::uint32_t a, std::uint32_t b, std::uint32_t part) {
    const std::uint32_t evenChannels = 0x00FF00FFU;
    const auto redBlue = ((a & evenChannels) * (256 - part) + (b & evenChannels) * part) >> 8 & evenChannels;
    const auto green = ((a >> 8 & 255U) * (256 - part) + (b >> 8 & 255U) * part) >> 8 & 255U;
    return opaque | redBlue | green << 8;
}

}  // namespace

Picture::Picture(int w, int h, Colour fill)
    : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h), pixelOf(fill)) {}

void Picture::set(int x, int y, Colour colour) {
    if (x < 0 || y < 0 || x >= width || y >= height) return;
    pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)] =
        pixelOf(colour);
}

Colour Picture::at(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) return -1;
    const auto pixel =
        pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    return rgb(static_cast<int>(pixel >> 16 & 255U), static_cast<int>(pixel >> 8 & 255U),
               static_cast<int>(pixel & 255U));
}

void Picture::line(double x0, double y0, double x1, double y1, Colour colour) {
    const double steps = std::max(1.0, std::ceil(std::max(std::abs(x1 - x0), std::abs(y1 - y0))));
    const double dx = (x1 - x0) / steps;
    const double dy = (y1 - y0) / steps;
    for (double i = 0; i <= steps; ++i)
        set(static_cast<int>(std::floor(x0 + dx * i)), static_cast<int>(std::floor(y0 + dy * i)), colour);
}

void Picture::copy(const Picture& source, int sourceX, int sourceY, int w, int h, int x, int y) {
    const int left = std::max({0, -sourceX, -x});
    const int top = std::max({0, -sourceY, -y});
    const int right = std::min({w, source.width - sourceX, width - x});
    const int bottom = std::min({h, source.height - sourceY, height - y});
    if (left >= right) return;
    for (int row = top; row < bottom; ++row) {
        const auto from =
            source.pixels.begin() + static_cast<std::ptrdiff_t>(sourceY + row) * source.width + sourceX;
        const auto to = pixels.begin() + static_cast<std::ptrdiff_t>(y + row) * width + x;
        std::copy(from + left, from + right, to + left);
    }
}

void Picture::stretch(const Picture& source) {
    if (source.empty() || empty()) return;
    // Between neighbouring pixels by their distance, in 256ths, so that an enlarged picture has no steps.
    const auto place = [](int i, int size, int sourceSize) {
        const auto at = (static_cast<std::int64_t>(2 * i + 1) * sourceSize * 128) / size - 128;
        return std::clamp<std::int64_t>(at, 0, static_cast<std::int64_t>(sourceSize - 1) * 256);
    };
    for (int y = 0; y < height; ++y) {
        const auto fromY = place(y, height, source.height);
        const auto* upper = &source.pixels[static_cast<std::size_t>(fromY / 256 * source.width)];
        const auto* lower = fromY / 256 + 1 < source.height ? upper + source.width : upper;
        auto* target = &pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)];
        for (int x = 0; x < width; ++x) {
            const auto fromX = place(x, width, source.width);
            const auto left = fromX / 256;
            const auto right = std::min<std::int64_t>(left + 1, source.width - 1);
            const auto above = mixed(upper[left], upper[right], static_cast<std::uint32_t>(fromX % 256));
            const auto below = mixed(lower[left], lower[right], static_cast<std::uint32_t>(fromX % 256));
            target[x] = mixed(above, below, static_cast<std::uint32_t>(fromY % 256));
        }
    }
}

}  // namespace desk
