#include "desktop/binding.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QFocusEvent>
#include <stdexcept>

#include "desktop/canvas_binding.h"
#include "desktop/choice_bindings.h"
#include "desktop/date_binding.h"
#include "desktop/field_bindings.h"
#include "desktop/grid_binding.h"
#include "desktop/link_binding.h"
#include "desktop/marker_binding.h"
#include "desktop/scroll_bar_binding.h"
#include "desktop/text_binding.h"
#include "desktop/tree_binding.h"
#include "desktop/window_change.h"

namespace desk::desktop {

namespace {

constexpr Qt::FocusReason askedByScreen = Qt::ShortcutFocusReason;

class FocusWatch : public QObject {
  public:
    FocusWatch(Control& control, QWidget* widget) : QObject(widget), control_(&control) {
        // A calendar leaves the focus to a part of it.
        while (widget->focusProxy() != nullptr) widget = widget->focusProxy();
        widget->installEventFilter(this);
        follow(this, control.gone, [this] { control_ = nullptr; });
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::FocusIn || control_ == nullptr) return false;
        if (isMove(static_cast<QFocusEvent*>(event)->reason())) enter([this] { control_->focused(); });
        return false;
    }

  private:
    /// A window that comes back to the front, or a list that closes, moves no focus for the person.
    bool isMove(Qt::FocusReason reason) const {
        if (reason == askedByScreen) return true;
        if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return false;
        return !WindowChange::runs();
    }

    Control* control_;
};

class WheelWatch : public QObject {
  public:
    explicit WheelWatch(QWidget* widget) : QObject(widget), widget_(widget) {
        widget->installEventFilter(this);
        // What scrolls gets it there.
        if (auto* area = qobject_cast<QAbstractScrollArea*>(widget))
            area->viewport()->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Wheel || widget_->hasFocus()) return false;
        event->ignore();
        return true;
    }

  private:
    QWidget* widget_;
};

/// Lets through to a widget whose control has gone what Qt needs to take it away, and nothing else.
class Deaf : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
            case QEvent::DeferredDelete:
            case QEvent::Hide:
            case QEvent::HideToParent:
            case QEvent::ParentChange:
            case QEvent::ChildRemoved:
                return false;
            default:
                return true;
        }
    }
};

/// One of its own events may be running, so that it is only taken out of use now, and goes when none does.
void takeAway(QWidget* widget) {
    widget->setObjectName({});
    auto* deaf = new Deaf(widget);
    for (QWidget* part : QWidgetList{widget} + widget->findChildren<QWidget*>()) {
        part->blockSignals(true);
        part->installEventFilter(deaf);
    }
    widget->hide();
    widget->deleteLater();
}

template <class C>
QWidget* tried(Control& control, QWidget* (*make)(C&)) {
    auto* kind = dynamic_cast<C*>(&control);
    return kind != nullptr ? make(*kind) : nullptr;
}

QWidget* make(Control& control) {
    QWidget* widget = nullptr;
    const auto found = [&](QWidget* made) { return (widget = made) != nullptr; };
    if (found(tried<TextBox>(control, textBoxWidget)) || found(tried<Link>(control, linkWidget)) ||
        found(tried<Label>(control, labelWidget)) || found(tried<Button>(control, buttonWidget)) ||
        found(tried<CheckBox>(control, checkBoxWidget)) ||
        found(tried<OptionButton>(control, optionWidget)) || found(tried<DatePicker>(control, dateWidget)) ||
        found(tried<MonthCalendar>(control, calendarWidget)) || found(tried<Swatch>(control, swatchWidget)) ||
        found(tried<ComboBox>(control, comboWidget)) || found(tried<ListBox>(control, listWidget)) ||
        found(tried<TabStrip>(control, tabWidget)) || found(tried<StatusBar>(control, statusWidget)) ||
        found(tried<Tree>(control, treeWidget)) || found(tried<Grid>(control, gridWidget)) ||
        found(tried<Canvas>(control, canvasWidget)) || found(tried<Marker>(control, markerWidget)) ||
        found(tried<ScrollBar>(control, scrollBarWidget)))
        return widget;
    throw std::logic_error("no binding for " + control.name());
}

}  // namespace

void keepWheelForFocus(QWidget* widget) {
    if (widget->focusPolicy() == Qt::WheelFocus) widget->setFocusPolicy(Qt::StrongFocus);
    new WheelWatch(widget);
}

void bindCommon(Control& control, QWidget* widget) {
    widget->setObjectName(text(control.name()));
    const auto apply = [&control, widget] {
        widget->setEnabled(control.enabled());
        widget->setVisible(control.visible());
        widget->setProperty(demandedProperty, control.demanded());
    };
    widget->setEnabled(control.enabled());
    widget->setProperty(demandedProperty, control.demanded());
    // Shown with the window; a call here would open a window of its own.
    if (!control.visible()) widget->hide();
    follow(widget, control.touched, apply);
    follow(widget, control.focusAsked, [widget] { widget->setFocus(askedByScreen); });
    new FocusWatch(control, widget);
}

void goWith(Control& control, QWidget* widget) {
    follow(widget, control.gone, [widget] { takeAway(widget); });
}

QWidget* widgetFor(Control& control) {
    QWidget* widget = make(control);
    bindCommon(control, widget);
    goWith(control, widget);
    return widget;
}

}  // namespace desk::desktop
