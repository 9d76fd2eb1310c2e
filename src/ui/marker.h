#pragma once

#include <string>
#include <string_view>

#include "ui/area.h"
#include "ui/colour.h"
#include "ui/control.h"

namespace desk {

/// Of the mouse: the one that acts, or any other.
enum class MouseButton { left, other };

/// A coloured field with a text that lies over a part of another control, such as a cell of a grid, and stays
/// where it was laid, whatever becomes of what lies below.
class Marker : public Control {
  public:
    Marker(Place place, std::string name, Colour colour);

    Colour colour() const { return colour_; }
    /// Within the view of what it lies over.
    const Area& area() const { return area_; }
    void lay(const Area& area) { set(area_, area); }
    const std::string& text() const { return text_; }
    void setText(std::string_view text) { set(text_, text); }

    /// What a person does; nothing while disabled or hidden.
    void click(MouseButton button);

    Signal<MouseButton> clicked;

  private:
    Colour colour_;
    Area area_;
    std::string text_;
};

}  // namespace desk
