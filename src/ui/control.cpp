#include "ui/control.h"

#include "ui/screen.h"

namespace desk {

Control::Control(Screen& screen, std::string name) : screen_(screen), name_(std::move(name)) {
    screen.controls_.push_back(this);
}

bool Control::usable() const {
    for (const Control* control = this; control != nullptr; control = control->holder_)
        if (!control->enabled_ || !control->visible_) return false;
    return true;
}

}  // namespace desk
