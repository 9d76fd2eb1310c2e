#pragma once

#include <QObject>
#include <QWidget>

#include "desktop/convert.h"
#include "desktop/edge.h"
#include "ui/control.h"

namespace desk::desktop {

/// Keeps a slot connected to a signal for as long as `widget` lives.
class Kept : public QObject {
  public:
    Kept(QObject* widget, Subscription subscription)
        : QObject(widget), subscription_(std::move(subscription)) {}

  private:
    Subscription subscription_;
};

/// Runs `slot`, through the edge, whenever `signal` is raised while `widget` lives: what goes wrong in
/// showing something is no failure of the screen that has changed it.
template <class... Args, class Slot>
void follow(QObject* widget, Signal<Args...>& signal, Slot slot) {
    new Kept(widget,
             signal.connect([slot = std::move(slot)](Args... args) { enter([&] { slot(args...); }); }));
}

/// Whether a widget still has its control: not, where a handler of the control has ended its life.
inline bool isBound(const QWidget* widget) {
    return !widget->objectName().isEmpty();
}

/// The widget's property that says whether a save demands its control, for the caption to mark it.
inline constexpr const char* demandedProperty = "demanded";

/// A button's property that says whether it is the main one.
inline constexpr const char* mainButtonProperty = "main";

/// Leaves the wheel to what lies around `widget` while that has not the focus, and gives it none by the
/// wheel.
void keepWheelForFocus(QWidget* widget);

/// What every binding shares: name, enabled, visible, demanded, the focus both ways.
void bindCommon(Control& control, QWidget* widget);

/// Takes `widget` out of use when `control` goes, and away when nothing of its own runs any more.
void goWith(Control& control, QWidget* widget);

/// A widget that shows `control` and tells it what people do. It goes when the control goes.
QWidget* widgetFor(Control& control);

}  // namespace desk::desktop
