#pragma once

#include <QWidget>

#include "ui/fields.h"

namespace desk::desktop {

QWidget* labelWidget(Label& label);
QWidget* buttonWidget(Button& button);
QWidget* checkBoxWidget(CheckBox& box);
QWidget* optionWidget(OptionButton& option);
QWidget* calendarWidget(MonthCalendar& calendar);
QWidget* swatchWidget(Swatch& swatch);

}  // namespace desk::desktop
