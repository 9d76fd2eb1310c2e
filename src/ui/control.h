#pragma once

#include <optional>
#include <string>
#include <utility>

#include "ui/signal.h"

namespace desk {

class Control;
class Screen;

/// Where a control lies: on the screen itself, or in a frame on it.
struct Place {
    Place(Screen& on) : screen(on) {}
    Place(const Control& frame);

    Screen& screen;
    const Control* holder = nullptr;
};

/// A place in a grid, its fixed rows and columns counted.
struct Cell {
    int row = 0;
    int column = 0;

    bool operator==(const Cell&) const = default;
};

/// What every control has. Controls are plain objects without a toolkit: screens read and write their
/// properties, people (or tests) act on them through the same calls, and whoever shows them listens to
/// `touched`. A control may come and go while its screen lives.
class Control {
  public:
    /// Registers itself with the screen under `name`, the name that tests and tours find it by.
    Control(Place place, std::string name);
    /// Leaves the screen, and tells whoever shows it.
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& name() const { return name_; }
    Screen& screen() const { return screen_; }

    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled) { set(enabled_, enabled); }
    bool visible() const { return visible_; }
    void setVisible(bool visible) { set(visible_, visible); }
    /// Whether a person can act on it: neither it nor a frame around it is disabled or hidden.
    bool usable() const;
    /// The frame that holds this control, null when it lies on the screen itself.
    const Control* holder() const { return holder_; }

    /// The control at whose lower edge a floating control (a panel, a button inside a field) lies; null for a
    /// control with a place of its own.
    const Control* anchor() const { return anchor_; }
    /// The cell of the anchor, a grid, that it lies at; nothing where it lies at the anchor as a whole.
    const std::optional<Cell>& anchorCell() const { return anchorCell_; }
    void setAnchor(const Control* anchor, std::optional<Cell> cell = {});

    /// Whether a save refuses to go without it; shown as a mark at its caption.
    bool demanded() const { return demanded_; }
    void setDemanded(bool demanded) { set(demanded_, demanded); }

    /// Asks that the focus moves here.
    void focus() { focusAsked(); }

    std::string tag;  ///< free for the screen's own notes

    Signal<> touched;     ///< a property has a new value
    Signal<> focusAsked;  ///< the screen wants the focus here
    Signal<> focused;     ///< the focus has come here
    Signal<> gone;        ///< it is being destroyed: nothing of it may be used any more

  protected:
    /// Gives `property` a new value and tells observers; false when it had that value already.
    template <class T, class U>
    bool set(T& property, U&& value) {
        if (property == value) return false;
        property = std::forward<U>(value);
        touched();
        return true;
    }

  private:
    Screen& screen_;
    std::string name_;
    bool enabled_ = true;
    bool visible_ = true;
    bool demanded_ = false;
    const Control* holder_;
    const Control* anchor_ = nullptr;
    std::optional<Cell> anchorCell_;
};

}  // namespace desk
