#include "ui/panel.h"

namespace desk {

Panel::Panel(Place place, std::string name, std::string caption)
    : Frame(place, std::move(name), std::move(caption)) {
    setVisible(false);
}

void Panel::open() {
    if (isOpen()) return;
    setVisible(true);
    opened();
}

void Panel::close() {
    if (!isOpen()) return;
    setVisible(false);
    closed();
}

void Panel::escape() {
    if (usable() && closesOnEscape) close();
}

}  // namespace desk
