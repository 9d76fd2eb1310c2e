#pragma once

#include "desktop/keys.h"

class QMouseEvent;

namespace desk::desktop {

/// A button that Enter presses, also outside of a dialog, once however long it is held; the second press of a
/// double click is none.
template <class Base>
class Pressed : public Base {
  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!isEnter(*event)) return Base::keyPressEvent(event);
        if (!event->isAutoRepeat()) this->click();
    }
    void mouseDoubleClickEvent(QMouseEvent*) override {}
};

}  // namespace desk::desktop
