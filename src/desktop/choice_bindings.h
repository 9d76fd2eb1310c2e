#pragma once

#include <QWidget>

#include "ui/choices.h"

namespace desk::desktop {

QWidget* comboWidget(ComboBox& combo);
QWidget* listWidget(ListBox& list);
QWidget* tabWidget(TabStrip& strip);
QWidget* statusWidget(StatusBar& bar);

}  // namespace desk::desktop
