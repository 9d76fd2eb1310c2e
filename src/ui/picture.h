#pragma once

#include <cstdint>
#include <vector>

#include "ui/colour.h"

namespace desk {

/// Pixels in rows from the top, each 0xFFrrggbb.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    Picture() = default;
    Picture(int w, int h, Colour fill = windowColour);

    bool empty() const { return pixels.empty(); }
    void set(int x, int y, Colour colour);  ///< nothing outside the picture
    Colour at(int x, int y) const;          ///< -1 outside the picture
    void line(double x0, double y0, double x1, double y1, Colour colour);
    /// Copies the rectangle of `source` at (sourceX, sourceY) to (x, y), what lies outside either picture
    /// left out.
    void copy(const Picture& source, int sourceX, int sourceY, int w, int h, int x, int y);
    /// `source` stretched over this whole picture.
    void stretch(const Picture& source);
};

}  // namespace desk
