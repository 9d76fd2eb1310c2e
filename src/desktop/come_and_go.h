#pragma once

#include "desktop/binding.h"
#include "ui/control_list.h"

namespace desk::desktop {

/// Lets `show` make the widget of each control that is in the list, and of each that comes later, as long as
/// `owner` lives.
template <class C, class Show>
void showEach(QWidget* owner, ControlList<C>& list, Show show) {
    for (int i = 0; i < list.count(); ++i) show(list[i]);
    follow(owner, list.added, show);
}

}  // namespace desk::desktop
