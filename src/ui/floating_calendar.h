#pragma once

#include <string>

#include "ui/desktop.h"
#include "ui/panel.h"

namespace desk {

/// Which field takes the day that is clicked: the one that had the focus last, or the one whose button opened
/// the calendar, whatever had the focus since.
enum class DayGoesTo { focusedField, openedField };

/// One month calendar that serves several date fields. A field that takes the focus gets its button at its
/// right edge; the button shows or hides the calendar below the field, at the field's own day where it has
/// one, and a click on a day writes it into the field.
class FloatingCalendar {
  public:
    FloatingCalendar(Screen& screen, Desktop& desktop, const std::string& name);

    /// Serves `field`, remembered under `number`. Several fields may share a button.
    void serve(TextBox& field, Button& button, int number, DayGoesTo dayGoesTo = DayGoesTo::focusedField);
    void hide() { 面板.close(); }

    Panel 面板;
    MonthCalendar 日历;

    /// A day has been written into the field of that number, and the calendar is hidden.
    Signal<int> dayTaken;

  private:
    void toggleBelow(TextBox& field);
    void take(const DateTime& day);

    Desktop& desktop_;
    TextBox* field_ = nullptr;
    int number_ = 0;
};

}  // namespace desk
