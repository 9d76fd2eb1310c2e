#include "ui/scroll_bar.h"

#include <algorithm>

namespace desk {

ScrollBar::ScrollBar(Place place, std::string name) : Control(place, std::move(name)) {}

void ScrollBar::setLast(int last) {
    set(last_, std::max(last, 0));
    setPosition(position_);
}

void ScrollBar::setPosition(int position) {
    if (set(position_, std::clamp(position, 0, last_))) moved();
}

void ScrollBar::scrollTo(int position) {
    if (usable()) setPosition(position);
}

}  // namespace desk
