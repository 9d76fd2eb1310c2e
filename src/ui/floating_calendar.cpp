#include "ui/floating_calendar.h"

namespace desk {

FloatingCalendar::FloatingCalendar(Screen& screen, Desktop& desktop, const std::string& name)
    : 面板(screen, name + "面板"), 日历(面板, name), desktop_(desktop) {
    日历.dayClicked += [this](const DateTime& day) { take(day); };
}

void FloatingCalendar::serve(TextBox& field, Button& button, int number, DayGoesTo dayGoesTo) {
    field.focused += [this, &field, &button, number, dayGoesTo] {
        button.setAnchor(&field);
        button.setVisible(true);
        if (dayGoesTo == DayGoesTo::openedField) return;
        field_ = &field;
        number_ = number;
    };
    // A button of its own serves its field whoever had the focus last; a shared one serves the field it
    // floats at.
    button.clicked += [this, &field, &button, number] {
        if (button.anchor() != &field) return;
        field_ = &field;
        number_ = number;
        toggleBelow(field);
    };
    button.setVisible(false);
}

void FloatingCalendar::toggleBelow(TextBox& field) {
    面板.setAnchor(&field);
    if (const auto day = parseDate(field.text()); day) 日历.setValue(*day);
    面板.toggle();
}

void FloatingCalendar::take(const DateTime& day) {
    if (field_ == nullptr) return;
    field_->setText(desktop_.shortDate(day));
    hide();
    dayTaken(number_);
}

}  // namespace desk
