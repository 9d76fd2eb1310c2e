#pragma once

#include <string>
#include <string_view>

#include "base/date.h"
#include "ui/colour.h"
#include "ui/control.h"

namespace desk {

/// A fixed or changing text.
class Label : public Control {
  public:
    Label(Place place, std::string name, std::string caption = {});

    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption) { set(caption_, caption); }

    /// A person's click.
    void click();

    Signal<> clicked;

  private:
    std::string caption_;
};

/// How a text box takes its text.
enum class TextStyle { line, paragraph, password };

/// A text that a person types. A new text raises `changed`, whoever set it.
class TextBox : public Control {
  public:
    TextBox(Place place, std::string name, TextStyle style = TextStyle::line);

    TextStyle style() const { return style_; }
    const std::string& text() const { return text_; }
    void setText(std::string_view text);
    bool locked() const { return locked_; }
    void setLocked(bool locked) { set(locked_, locked); }
    /// Whether a save reads a number from the head of the text.
    bool numeric() const { return numeric_; }
    void setNumeric(bool numeric) { set(numeric_, numeric); }
    /// What to tell a person whose text will be stored as a number that it does not read as; empty without
    /// need.
    std::string doubt() const;

    /// Asks that the whole text be selected, the focus apart.
    void selectAll() { selectAllAsked(); }
    /// What a person does: replaces the text, unless the box is disabled, hidden or locked.
    void type(std::string_view text);
    /// The Enter key. Moves the focus on unless somebody listens to `entered`.
    void pressEnter();

    Signal<> changed;
    Signal<> entered;
    Signal<> selectAllAsked;
    bool enterMovesOn = true;  ///< Enter acts as Tab

  private:
    TextStyle style_;
    std::string text_;
    bool locked_ = false;
    bool numeric_ = false;
};

/// `main` is the button that ends the work on a screen's fields: it is drawn so, and comes first behind them.
enum class ButtonRole { usual, main };

class Button : public Control {
  public:
    Button(Place place, std::string name, std::string caption, ButtonRole role = ButtonRole::usual);

    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption) { set(caption_, caption); }
    ButtonRole role() const { return role_; }

    /// A person's click; nothing while disabled or hidden.
    void click();

    Signal<> clicked;

  private:
    std::string caption_;
    ButtonRole role_;
};

/// A box that is ticked or not. A new state raises `clicked`, whoever set it.
class CheckBox : public Control {
  public:
    CheckBox(Place place, std::string name, std::string caption);

    const std::string& caption() const { return caption_; }
    bool checked() const { return checked_; }
    void setChecked(bool checked);

    /// A person's click; nothing while disabled or hidden.
    void click();

    Signal<> clicked;

  private:
    std::string caption_;
    bool checked_ = false;
};

/// One of several options that exclude each other; the screen lists the others of its group.
class OptionButton : public Control {
  public:
    /// Joins the group of `first`, or starts one when it is null.
    OptionButton(Place place, std::string name, std::string caption, OptionButton* first = nullptr);
    ~OptionButton() override;

    const std::string& caption() const { return caption_; }
    bool chosen() const { return chosen_; }
    /// Choosing one unchooses the others of the group, and raises `clicked`, whoever chose it.
    void choose();
    /// What a person does; nothing while disabled or hidden.
    void click();

    Signal<> clicked;

  private:
    std::string caption_;
    bool chosen_ = false;
    OptionButton* next_;  ///< the group is a ring
};

/// A day that is always there.
class DatePicker : public Control {
  public:
    DatePicker(Place place, std::string name);

    const DateTime& value() const { return value_; }
    /// The time of day is dropped.
    void setValue(const DateTime& value);

    /// What a person does; nothing while disabled or hidden.
    void pick(const DateTime& value);

    Signal<> changed;

  private:
    DateTime value_{2000, 1, 1};
};

/// A month's days, one of which can be clicked.
class MonthCalendar : public Control {
  public:
    MonthCalendar(Place place, std::string name);

    const DateTime& value() const { return value_; }
    void setValue(const DateTime& value) { set(value_, value.dayOnly()); }

    /// A person's click on a day; nothing while hidden.
    void clickDay(const DateTime& day);

    Signal<DateTime> dayClicked;

  private:
    DateTime value_{2000, 1, 1};
};

/// A coloured area.
class Swatch : public Control {
  public:
    Swatch(Place place, std::string name);

    Colour colour() const { return colour_; }
    void setColour(Colour colour) { set(colour_, colour); }

  private:
    Colour colour_ = windowColour;
};

/// A part of a screen that is shown, hidden, enabled or disabled as a whole.
class Frame : public Control {
  public:
    Frame(Place place, std::string name, std::string caption = {});

    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption) { set(caption_, caption); }

  private:
    std::string caption_;
};

/// A tick that comes again and again. Whoever shows the screen runs it while it is enabled.
class Timer : public Control {
  public:
    Timer(Place place, std::string name, int milliseconds);

    int interval() const { return interval_; }

    Signal<> tick;

  private:
    int interval_;
};

}  // namespace desk
