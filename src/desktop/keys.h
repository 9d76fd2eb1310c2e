#pragma once

#include <QKeyEvent>

namespace desk::desktop {

inline bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace desk::desktop
