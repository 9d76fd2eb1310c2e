#include "ui/marker.h"

namespace desk {

Marker::Marker(Place place, std::string name, Colour colour)
    : Control(place, std::move(name)), colour_(colour) {}

void Marker::click(MouseButton button) {
    if (usable()) clicked(button);
}

}  // namespace desk
