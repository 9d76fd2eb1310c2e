#include "ui/fields.h"

#include "base/number.h"

namespace desk {

Label::Label(Place place, std::string name, std::string caption)
    : Control(place, std::move(name)), caption_(std::move(caption)) {}

void Label::click() {
    if (usable()) clicked();
}

TextBox::TextBox(Place place, std::string name, TextStyle style)
    : Control(place, std::move(name)), style_(style) {}

void TextBox::setText(std::string_view text) {
    if (set(text_, text)) changed();
}

void TextBox::type(std::string_view text) {
    if (usable() && !locked_) setText(text);
}

std::string TextBox::doubt() const {
    if (!numeric_ || text_.empty() || wholeNumber(text_)) return {};
    return "不是纯数字，将按 " + numberText(val(text_)) + " 保存";
}

void TextBox::pressEnter() {
    if (usable()) entered();
}

Button::Button(Place place, std::string name, std::string caption, ButtonRole role)
    : Control(place, std::move(name)), caption_(std::move(caption)), role_(role) {}

void Button::click() {
    if (usable()) clicked();
}

CheckBox::CheckBox(Place place, std::string name, std::string caption)
    : Control(place, std::move(name)), caption_(std::move(caption)) {}

void CheckBox::setChecked(bool checked) {
    if (set(checked_, checked)) clicked();
}

void CheckBox::click() {
    if (usable()) setChecked(!checked_);
}

OptionButton::OptionButton(Place place, std::string name, std::string caption, OptionButton* first)
    : Control(place, std::move(name)), caption_(std::move(caption)), next_(this) {
    if (first == nullptr) return;
    next_ = first->next_;
    first->next_ = this;
}

OptionButton::~OptionButton() {
    OptionButton* before = this;
    while (before->next_ != this) before = before->next_;
    before->next_ = next_;
}

void OptionButton::choose() {
    if (chosen_) return;
    for (OptionButton* other = next_; other != this; other = other->next_) other->set(other->chosen_, false);
    set(chosen_, true);
    clicked();
}

void OptionButton::click() {
    if (usable()) choose();
}

DatePicker::DatePicker(Place place, std::string name) : Control(place, std::move(name)) {}

void DatePicker::setValue(const DateTime& value) {
    if (set(value_, value.dayOnly())) changed();
}

void DatePicker::pick(const DateTime& value) {
    if (usable()) setValue(value);
}

MonthCalendar::MonthCalendar(Place place, std::string name) : Control(place, std::move(name)) {}

void MonthCalendar::clickDay(const DateTime& day) {
    if (!usable()) return;
    setValue(day);
    dayClicked(day.dayOnly());
}

Swatch::Swatch(Place place, std::string name) : Control(place, std::move(name)) {}

Frame::Frame(Place place, std::string name, std::string caption)
    : Control(place, std::move(name)), caption_(std::move(caption)) {}

Timer::Timer(Place place, std::string name, int milliseconds)
    : Control(place, std::move(name)), interval_(milliseconds) {}

}  // namespace desk
