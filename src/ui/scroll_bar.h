#pragma once

#include "ui/control.h"

namespace desk {

/// Steps from 0 to a last position, for what a screen moves by itself.
class ScrollBar : public Control {
  public:
    ScrollBar(Place place, std::string name);

    int last() const { return last_; }
    /// At least 0. A position beyond it moves there.
    void setLast(int last);
    int position() const { return position_; }
    /// Kept within the bar. A new one raises `moved`, whoever moved it.
    void setPosition(int position);

    /// What a person does; nothing while disabled or hidden.
    void scrollTo(int position);

    Signal<> moved;

  private:
    int last_ = 0;
    int position_ = 0;
};

}  // namespace desk
