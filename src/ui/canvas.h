#pragma once

#include "ui/control.h"
#include "ui/picture.h"

namespace desk {

/// An area to draw on. What is drawn lies in a picture of as many pixels as the area has on the screen; the
/// numbers of the calls are twips.
class Canvas : public Control {
  public:
    Canvas(Place place, std::string name);

    double width() const { return width_; }    ///< twips
    double height() const { return height_; }  ///< twips
    double pixelsPerTwip() const { return scale_; }

    /// Empties the area to `background`.
    void clear();
    void line(double x0, double y0, double x1, double y1, Colour colour);
    /// -1 outside the area.
    Colour point(double x, double y) const;
    const Picture& picture() const { return picture_; }
    /// The pixels, for whole drawings; call repaint() afterwards.
    Picture& picture() { return picture_; }
    void repaint() { touched(); }

    /// Whoever shows the canvas tells its size; raises `resized` if it is new.
    void resize(double widthInTwips, double heightInTwips, double pixelsPerTwip);
    void movePointer(double x, double y) { pointerMoved(x, y); }
    void press(double x, double y) { pressed(x, y); }

    Colour background = windowColour;

    Signal<> resized;
    Signal<double, double> pointerMoved;  ///< twips
    Signal<double, double> pressed;       ///< twips

  private:
    double width_ = 0;
    double height_ = 0;
    double scale_ = 1.0 / 15;
    Picture picture_;
};

}  // namespace desk
