#pragma once

#include "ui/fields.h"

namespace desk {

/// A part that opens over its screen and closes again: a list to pick from, some fields to fill in, a
/// calendar. It opens below its anchor, or over the lower half of the screen where it has none. While it is
/// open it has the focus and keeps it; the Escape key closes it, and the focus goes back to where it was.
class Panel : public Frame {
  public:
    /// Closed at first.
    Panel(Place place, std::string name, std::string caption = {});

    bool isOpen() const { return visible(); }
    /// Raise `opened` or `closed` where it was not so before.
    void open();
    void close();
    void toggle() { isOpen() ? close() : open(); }

    bool closesOnEscape = true;  ///< not where a person has to decide in it

    /// What people do: the Escape key; nothing while it is closed or disabled.
    void escape();

    Signal<> opened;
    Signal<> closed;
};

}  // namespace desk
