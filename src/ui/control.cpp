#include "ui/control.h"

#include <algorithm>

#include "ui/screen.h"

namespace desk {

Place::Place(const Control& frame) : screen(frame.screen()), holder(&frame) {}

Control::Control(Place place, std::string name)
    : screen_(place.screen), name_(std::move(name)), holder_(place.holder) {
    screen_.controls_.push_back(this);
}

Control::~Control() {
    auto& others = screen_.controls_;
    others.erase(std::find(others.begin(), others.end(), this));
    for (Control* other : others) {
        if (other->holder_ == this) other->holder_ = nullptr;
        if (other->anchor_ == this) other->anchor_ = nullptr;
    }
    gone();
}

void Control::setAnchor(const Control* anchor, std::optional<Cell> cell) {
    if (anchor_ == anchor && anchorCell_ == cell) return;
    anchor_ = anchor;
    anchorCell_ = cell;
    touched();
}

bool Control::usable() const {
    for (const Control* control = this; control != nullptr; control = control->holder_)
        if (!control->enabled_ || !control->visible_) return false;
    return true;
}

}  // namespace desk
