#pragma once

#include <QWidget>
#include <initializer_list>
#include <memory>
#include <string>

#include "ui/control.h"

namespace desk::desktop {

/// A person before a window, with mouse, wheel, keyboard and clipboard, as Qt delivers them. Controls are
/// found by their names.
class Person {
  public:
    /// Takes over the window, shows it, and waits until it has the keyboard.
    explicit Person(QWidget* window);

    QWidget& window() const { return *window_; }
    /// Takes the window away.
    void close() { window_.reset(); }
    /// The widget of that control; there must be one.
    QWidget& at(const Control& control) const;
    template <class Widget>
    Widget& at(const Control& control) const {
        return dynamic_cast<Widget&>(at(control));
    }
    /// The name of the control that has the focus.
    static std::string focused();

    /// At whatever has the focus.
    void press(std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers with = {}) const;
    void backTab(int times = 1) const;
    void type(const char* text) const;
    /// What no key has comes from an input method.
    static void type(QWidget& field, const QString& text);
    void paste(const char* text) const;

    void click(const Control& control, Qt::MouseButton button = Qt::LeftButton) const;
    static void click(QWidget& widget, QPoint at, Qt::MouseButton button = Qt::LeftButton);
    /// Two presses, the second as a window system tells it.
    static void doubleClick(QWidget& widget, QPoint at);
    /// One notch towards the person.
    void wheel(const Control& control) const { wheel(at(control)); }
    static void wheel(QWidget& widget);

  private:
    std::unique_ptr<QWidget> window_;
};

/// The middle of a line of a list, grid (its fixed rows not counted) or tree (`rows` from the root on).
QPoint lineOf(QWidget& view, std::initializer_list<int> rows, int column = 0);
/// What such a point lies on.
QWidget& viewportOf(QWidget& view);

}  // namespace desk::desktop
