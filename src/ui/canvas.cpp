#include "ui/canvas.h"

#include <cmath>

namespace desk {

Canvas::Canvas(Place place, std::string name) : Control(place, std::move(name)) {}

void Canvas::clear() {
    picture_ = Picture(picture_.width, picture_.height, background);
    touched();
}

void Canvas::line(double x0, double y0, double x1, double y1, Colour colour) {
    picture_.line(x0 * scale_, y0 * scale_, x1 * scale_, y1 * scale_, colour);
}

Colour Canvas::point(double x, double y) const {
    return picture_.at(static_cast<int>(std::floor(x * scale_)), static_cast<int>(std::floor(y * scale_)));
}

void Canvas::resize(double widthInTwips, double heightInTwips, double pixelsPerTwip) {
    if (widthInTwips == width_ && heightInTwips == height_ && pixelsPerTwip == scale_) return;
    width_ = widthInTwips;
    height_ = heightInTwips;
    scale_ = pixelsPerTwip;
    picture_ = Picture(static_cast<int>(std::lround(width_ * scale_)),
                       static_cast<int>(std::lround(height_ * scale_)), background);
    resized();
    touched();
}

}  // namespace desk
