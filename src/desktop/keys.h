#pragma once

#include <QKeyEvent>

namespace desk::desktop {

inline bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// F4 and Alt+Down, as everywhere.
inline bool opensDropDown(const QKeyEvent& event) {
    if (event.key() == Qt::Key_F4) return event.modifiers() == Qt::NoModifier;
    return event.key() == Qt::Key_Down && (event.modifiers() & Qt::AltModifier);
}

}  // namespace desk::desktop
