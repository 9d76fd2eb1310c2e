#include "desktop/person.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTest>
#include <QWheelEvent>
#include <stdexcept>

#include "desktop/convert.h"

namespace desk::desktop {

Person::Person(QWidget* window) : window_(window) {
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
}

QWidget& Person::at(const Control& control) const {
    const QString name = text(control.name());
    QWidget* found = window_->objectName() == name ? window_.get() : window_->findChild<QWidget*>(name);
    if (found == nullptr) throw std::logic_error("no widget for " + control.name());
    return *found;
}

std::string Person::focused() {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? std::string() : utf8(focus->objectName());
}

void Person::press(std::initializer_list<Qt::Key> keys, Qt::KeyboardModifiers with) const {
    for (const Qt::Key key : keys) QTest::keyClick(QApplication::focusWidget(), key, with);
}

void Person::backTab(int times) const {
    for (int i = 0; i < times; ++i) press({Qt::Key_Backtab}, Qt::ShiftModifier);
}

void Person::type(const char* text) const {
    QTest::keyClicks(QApplication::focusWidget(), text);
}

void Person::type(QWidget& field, const QString& text) {
    for (const QChar c : text) {
        if (c == '\r') continue;
        if (c == '\n') {
            QTest::keyClick(&field, Qt::Key_Return);
        } else if (c.unicode() < 128) {
            QTest::keyClick(&field, c.toLatin1());
        } else {
            QInputMethodEvent commit;
            commit.setCommitString(c);
            QApplication::sendEvent(&field, &commit);
        }
    }
}

void Person::paste(const char* text) const {
    QApplication::clipboard()->setText(text);
    press({Qt::Key_V}, Qt::ControlModifier);
}

void Person::click(const Control& control, Qt::MouseButton button) const {
    QWidget& widget = at(control);
    click(widget, widget.rect().center(), button);
}

void Person::click(QWidget& widget, QPoint at, Qt::MouseButton button) {
    QTest::mouseClick(&widget, button, {}, at);
}

void Person::doubleClick(QWidget& widget, QPoint at) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
    QMouseEvent second(QEvent::MouseButtonDblClick, at, widget.mapToGlobal(at), Qt::LeftButton,
                       Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &second);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, at);
}

void Person::wheel(QWidget& widget) {
    const QPointF middle = widget.rect().center();
    constexpr int notch = -120;
    QWheelEvent turn(middle, widget.mapToGlobal(middle), QPoint(), QPoint(0, notch), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &turn);
}

QPoint lineOf(QWidget& view, std::initializer_list<int> rows, int column) {
    auto& items = dynamic_cast<QAbstractItemView&>(view);
    QModelIndex index;
    for (const int row : rows) index = items.model()->index(row, column, index);
    return items.visualRect(index).center();
}

QWidget& viewportOf(QWidget& view) {
    return *dynamic_cast<QAbstractItemView&>(view).viewport();
}

}  // namespace desk::desktop
