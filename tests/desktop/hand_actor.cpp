#include "desktop/hand_actor.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QHeaderView>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QToolTip>
#include <set>
#include <stdexcept>

#include "base/text.h"
#include "desktop/convert.h"
#include "desktop/form_by_hand.h"
#include "desktop/window_portrait.h"
#include "support/scripted_hand.h"
#include "ui/marker.h"

namespace desk::desktop {

namespace {

/// Whatever takes the keys.
QWidget* typedAt() {
    QWidget* popup = QApplication::activePopupWidget();
    QWidget* focus = QApplication::focusWidget();
    if (popup == nullptr && focus == nullptr) throw std::logic_error("nothing has the focus");
    if (popup == nullptr) return focus;
    return popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
}

void pressKey(const std::string& key) {
    const QKeyCombination keys = QKeySequence::fromString(text(key))[0];
    const bool back = keys == QKeyCombination(Qt::ShiftModifier, Qt::Key_Tab);
    QTest::keyClick(typedAt(), back ? Qt::Key_Backtab : keys.key(), keys.keyboardModifiers());
}

/// A key that is held down repeats itself.
void hold(const std::string& key) {
    const int code = QKeySequence::fromString(text(key))[0].key();
    for (const bool again : {false, true, true}) {
        QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier, QString(), again);
        QApplication::sendEvent(typedAt(), &event);
    }
}

/// Where the mouse meets a control: a line ("2"), a cell ("2 1"), a node ("0.1"), a day before its so
/// manieth letter, or the middle.
struct Spot {
    QWidget* widget;
    QPoint at;
};

Spot beforeLetter(QLineEdit& line, int number) {
    QPoint at(0, line.height() / 2);
    while (line.cursorPositionAt(at) < number && at.x() < line.width()) ++at.rx();
    return {&line, at};
}

Spot spotOf(QWidget& widget, const Control& control, const std::string& said) {
    if (qobject_cast<QDateEdit*>(&widget) != nullptr && !said.empty())
        return beforeLetter(*widget.findChild<QLineEdit*>(), std::stoi(said));
    if (auto* calendar = qobject_cast<QCalendarWidget*>(&widget)) {
        QWidget& days = viewportOf(*calendar->findChild<QAbstractItemView*>());
        return {&days, days.rect().center()};
    }
    auto* view = qobject_cast<QAbstractItemView*>(&widget);
    if (view == nullptr) return {&widget, widget.rect().center()};
    if (said.empty()) return {view->viewport(), view->viewport()->rect().center()};
    const auto words = split(said, ' ');
    QModelIndex index;
    if (const auto* grid = dynamic_cast<const Grid*>(&control)) {
        const int column = words.size() > 1 ? std::stoi(words[1]) : 1;
        index = view->model()->index(std::stoi(words[0]) - grid->fixedRows(), column);
    } else {
        for (const auto& row : split(words[0], '.')) index = view->model()->index(std::stoi(row), 0, index);
    }
    view->scrollTo(index);
    return {view->viewport(), view->visualRect(index).center()};
}

void moveAndLetGo(QWidget& widget, QPoint from, QPoint to) {
    QTest::mousePress(&widget, Qt::LeftButton, {}, from);
    QMouseEvent moves(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&widget, &moves);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, to);
}

void rest(const Spot& spot) {
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }));
    QHelpEvent resting(QEvent::ToolTip, spot.at, spot.widget->mapToGlobal(spot.at));
    QApplication::sendEvent(spot.widget, &resting);
}

/// A text that was dragged from elsewhere.
void drop(QWidget& field, const std::string& words) {
    QMimeData dragged;
    dragged.setText(text(words));
    const QPoint at = field.rect().center();
    QDragEnterEvent enters(at, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &enters);
    QDropEvent dropped(at, Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &dropped);
}

/// The names of what Tab comes to.
std::string wayByTab(int steps) {
    std::string way = "comes to";
    for (int i = 0; i < steps; ++i) {
        pressKey("Tab");
        way += " " + Person::focused();
    }
    return way;
}

void chooseEntry(const std::string& start) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) throw std::logic_error("no menu");
    for (QAction* entry : menu->actions())
        if (entry->text().startsWith(text(start))) {
            menu->close();
            return entry->trigger();
        }
    throw std::logic_error("no entry " + start);
}

}  // namespace

QWidget* HandActor::layOut(Screen& screen) {
    QApplication::clipboard()->clear();
    auto* form = dynamic_cast<FormByHand*>(&screen);
    return form != nullptr ? form->layOut(parts_) : WindowActor::layOut(screen);
}

Portrait HandActor::look(Screen& screen) {
    const Person* person = personAt(screen);
    if (person == nullptr) return {};
    // What is laid out anew, and what closes by itself, comes to rest.
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
    return seenBy(*person, screen);
}

bool HandActor::act(ScriptedHand& hand, const std::string& verb, const std::string& rest) {
    if (verb == "form") {
        parts_ = split(rest, ' ');
        hand.act("open form");
        return true;
    }
    if (verb == "tabs") {
        hand.program().machine.note(wayByTab(std::stoi(rest)));
        return true;
    }
    if (atTheKeys(verb, rest)) return true;
    front_ = &hand.current();
    if (atTheWindow(verb, rest)) return true;
    const auto [name, argument] = firstWord(rest);
    if (verb == "set") {
        const auto [what, value] = firstWord(argument);
        for (const auto& each : name == "all" ? parts_ : std::vector{name})
            dynamic_cast<FormByHand&>(*front_).act(hand.control(each), what, value);
        return true;
    }
    static const std::set<std::string> words{"drop",      "wheel",      "rightclick",  "middleclick",
                                             "ctrlclick", "shiftclick", "doubleclick", "pressoff",
                                             "hit",       "shakyclick", "rightpress",  "rest",
                                             "menu",      "drag",       "scroll"};
    Control& control = hand.control(name);
    if (!words.contains(verb) && dynamic_cast<Marker*>(&control) == nullptr) return false;
    return atTheView(control, verb, argument) || withTheMouse(control, verb, argument);
}

bool HandActor::atTheKeys(const std::string& verb, const std::string& rest) {
    if (verb == "key") {
        for (const auto& key : split(rest, ' ')) pressKey(key);
    } else if (verb == "hold") {
        hold(rest);
    } else if (verb == "keys") {
        Person::type(*typedAt(), text(unquoted(rest)));
    } else if (verb == "input") {
        QInputMethodEvent commit;
        commit.setCommitString(text(unquoted(rest)));
        QApplication::sendEvent(typedAt(), &commit);
    } else if (verb == "paste") {
        QApplication::clipboard()->setText(text(unquoted(rest)));
        pressKey("Ctrl+V");
    } else if (verb == "choose") {
        chooseEntry(rest);
    } else {
        return false;
    }
    return true;
}

bool HandActor::atTheWindow(const std::string& verb, const std::string& rest) {
    Person* person = personAt(*front_);
    if (verb == "size") {
        const auto [width, height] = firstWord(rest);
        person->window().resize(std::stoi(width), std::stoi(height));
    } else if (verb == "leave") {
        QWidget other;
        other.show();
        other.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
        person->window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&person->window()));
    } else if (verb == "again") {
        const QSize size = person->window().size();
        person->close();
        shown(*front_);
        personAt(*front_)->window().resize(size);
    } else {
        return false;
    }
    return true;
}

bool HandActor::atTheView(Control& control, const std::string& verb, const std::string& at) {
    if (verb == "drag") {
        const auto [column, by] = firstWord(at);
        auto& table = *reached<QTableView>(control);
        QWidget& header = *table.horizontalHeader()->viewport();
        const int number = std::stoi(column);
        const QPoint edge(table.columnViewportPosition(number) + table.columnWidth(number) - 1,
                          header.height() / 2);
        moveAndLetGo(header, edge, edge + QPoint(std::stoi(by), 0));
    } else if (verb == "scroll") {
        auto* bar = reached<QScrollBar>(control);
        if (bar == nullptr) bar = reached<QAbstractItemView>(control)->verticalScrollBar();
        bar->setValue(at == "top" ? 0 : at == "end" ? bar->maximum() : std::stoi(at));
    } else {
        return false;
    }
    return true;
}

bool HandActor::withTheMouse(Control& control, const std::string& verb, const std::string& at) {
    if (verb == "doubleclick" && dynamic_cast<Button*>(&control) == nullptr) return false;
    auto* widget = reached(control);
    if (widget == nullptr) return true;
    if (verb == "drop") {
        drop(*widget, unquoted(at));
        return true;
    }
    const Spot spot = spotOf(*widget, control, at);
    QWidget& met = *spot.widget;
    if (verb == "wheel") {
        Person::wheel(met);
    } else if (verb == "doubleclick") {
        Person::doubleClick(met, spot.at);
    } else if (verb == "pressoff") {
        moveAndLetGo(met, spot.at, QPoint(spot.at.x(), -2000));
    } else if (verb == "rightpress") {
        QTest::mousePress(&met, Qt::RightButton, {}, spot.at);
    } else if (verb == "shakyclick") {
        moveAndLetGo(met, spot.at, QPoint(5, spot.at.y()));
    } else if (verb == "rest") {
        desktop::rest(spot);
    } else if (verb == "menu") {
        QContextMenuEvent asked(QContextMenuEvent::Mouse, spot.at, met.mapToGlobal(spot.at));
        QApplication::sendEvent(&met, &asked);
    } else if (verb == "ctrlclick" || verb == "shiftclick") {
        QTest::mouseClick(&met, Qt::LeftButton, verb == "ctrlclick" ? Qt::ControlModifier : Qt::ShiftModifier,
                          spot.at);
    } else {
        Person::click(met, spot.at,
                      verb == "rightclick"    ? Qt::RightButton
                      : verb == "middleclick" ? Qt::MiddleButton
                                              : Qt::LeftButton);
    }
    return true;
}

}  // namespace desk::desktop
