#include "tour/person.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTreeView>
#include <algorithm>

#include "desktop/mnemonics.h"

namespace desk::tour {

namespace {

bool allAscii(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 128; });
}

/// The first index below `parent` whose text begins so.
QModelIndex findBeginning(const QAbstractItemModel& model, const QString& beginning,
                          const QModelIndex& parent = {}) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (index.data().toString().startsWith(beginning)) return index;
        const QModelIndex below = findBeginning(model, beginning, index);
        if (below.isValid()) return below;
    }
    return {};
}

template <class Widget>
Widget& as(QWidget* widget) {
    auto* found = qobject_cast<Widget*>(widget);
    if (found == nullptr) found = widget->findChild<Widget*>();
    if (found == nullptr) throw NotThere(widget->objectName() + " is of another kind");
    return *found;
}

void clickAction(QWidget& bar, QRect place) {
    QTest::mouseClick(&bar, Qt::LeftButton, {}, place.center());
}

}  // namespace

QWidget* Person::find(const QString& control, Wanted wanted) const {
    // A window in front hides those of the same name behind it.
    QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* area = window->findChild<QMdiArea*>();
            area != nullptr && area->activeSubWindow() != nullptr)
            windows.prepend(area->activeSubWindow());
    if (QWidget* modal = QApplication::activeModalWidget()) windows.prepend(modal);
    for (QWidget* window : windows) {
        if (!window->isVisible()) continue;
        for (QWidget* widget : window->findChildren<QWidget*>(control))
            if (widget->isVisible() && (wanted == Wanted::toLookAt || widget->isEnabled())) return widget;
    }
    throw NotThere("no usable control " + control);
}

bool Person::sees(const QString& control) const {
    try {
        find(control);
        return true;
    } catch (const NotThere&) {
        return false;
    }
}

int Person::rowsIn(const QString& grid) const {
    return as<QAbstractItemView>(find(grid, Wanted::toLookAt)).model()->rowCount();
}

QString Person::shownText(const QString& field) const {
    const QWidget* widget = find(field, Wanted::toLookAt);
    const QVariant text = widget->property("text");
    return text.isValid() ? text.toString() : widget->property("plainText").toString();
}

void Person::wait(int milliseconds) {
    waits_ = true;
    QTest::qWait(milliseconds);
    waits_ = false;
}

void Person::click(const QString& control) {
    QWidget* widget = find(control);
    // A check box answers on its mark, not on the empty space behind its caption.
    const bool box = widget->inherits("QCheckBox") || widget->inherits("QRadioButton");
    QTest::mouseClick(widget, Qt::LeftButton, {},
                      box ? QPoint(9, widget->height() / 2) : widget->rect().center());
}

void Person::type(const QString& field, const QString& text) {
    QWidget* widget = find(field);
    QTest::mouseClick(widget, Qt::LeftButton);
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    if (allAscii(text)) {
        QTest::keyClicks(widget, text);
    } else {
        QInputMethodEvent committed;
        committed.setCommitString(text);
        QApplication::sendEvent(widget, &committed);
    }
}

void Person::pressEnter(const QString& field) {
    QTest::keyClick(find(field), Qt::Key_Return);
}

void Person::clickIndex(QAbstractItemView& view, const QModelIndex& index, int offset) {
    view.scrollTo(index);
    const QRect place = view.visualRect(index);
    if (!place.isValid()) throw NotThere(view.objectName() + " does not show " + index.data().toString());
    const QPoint at = offset >= 0 ? QPoint(place.left() + offset, place.center().y()) : place.center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at);
}

void Person::pick(const QString& combo, const QString& text) {
    auto& box = as<QComboBox>(find(combo));
    QTest::mouseClick(&box, Qt::LeftButton);
    QAbstractItemView* list = box.view();
    const int line = box.findText(text);
    if (line < 0) throw NotThere(combo + " has no line " + text);
    // The list ignores a release that comes right after it opened, by a timer that may be late.
    wait(QApplication::doubleClickInterval() + 100);
    if (!list->isVisible()) throw NotThere(combo + " does not open");
    for (int ignored = 0; ignored < 50 && list->isVisible(); ++ignored) {
        clickIndex(*list, box.model()->index(line, box.modelColumn()), -1);
        if (list->isVisible()) wait(100);
    }
    if (box.currentIndex() != line) throw NotThere(combo + " did not take " + text);
}

void Person::clickLine(const QString& list, const QString& text) {
    auto& view = as<QAbstractItemView>(find(list));
    const QModelIndex index = findBeginning(*view.model(), text);
    if (!index.isValid()) throw NotThere(list + " has no line " + text);
    clickIndex(view, index, -1);
}

void Person::doubleClickLine(const QString& list, int line) {
    auto& view = as<QAbstractItemView>(find(list));
    const QModelIndex index = view.model()->index(line, 0);
    clickIndex(view, index, -1);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
}

void Person::clickNode(const QString& tree, const QString& beginning) {
    auto& view = as<QTreeView>(find(tree));
    const QModelIndex index = findBeginning(*view.model(), beginning);
    if (!index.isValid()) throw NotThere(tree + " has no node " + beginning);
    clickIndex(view, index, -1);
}

void Person::tickNode(const QString& tree, const QString& beginning) {
    auto& view = as<QTreeView>(find(tree));
    const QModelIndex index = findBeginning(*view.model(), beginning);
    if (!index.isValid()) throw NotThere(tree + " has no node " + beginning);
    constexpr int middleOfTheBox = 9;
    clickIndex(view, index, middleOfTheBox);
}

void Person::clickCell(const QString& grid, int row, int column) {
    auto& view = as<QAbstractItemView>(find(grid));
    clickIndex(view, view.model()->index(row, column), -1);
}

void Person::clickRow(const QString& grid, int column, const QString& text) {
    auto& view = as<QAbstractItemView>(find(grid));
    for (int row = 0; row < view.model()->rowCount(); ++row)
        if (const QModelIndex cell = view.model()->index(row, column); cell.data().toString() == text)
            return clickIndex(view, cell, -1);
    throw NotThere(grid + " has no row with " + text);
}

void Person::clickColoured(const QString& grid, const QColor& colour, int count) {
    auto& view = as<QAbstractItemView>(find(grid));
    const QAbstractItemModel& model = *view.model();
    for (int row = 0; row < model.rowCount() && count > 0; ++row)
        for (int column = 0; column < model.columnCount() && count > 0; ++column) {
            const QModelIndex cell = model.index(row, column);
            if (cell.data(Qt::BackgroundRole).value<QBrush>().color() != colour) continue;
            clickIndex(view, cell, -1);
            --count;
        }
    if (count > 0) throw NotThere(grid + " has too few cells of the colour " + colour.name());
}

void Person::clickTab(const QString& strip, const QString& title) {
    auto& bar = as<QTabBar>(find(strip));
    for (int i = 0; i < bar.count(); ++i)
        if (bar.tabText(i) == title) return clickAction(bar, bar.tabRect(i));
    throw NotThere(strip + " has no tab " + title);
}

void Person::choose(const QString& topEntry, const QString& entry) {
    const auto entryOf = [](const QList<QAction*>& actions, const QString& caption) {
        for (QAction* action : actions)
            if (desktop::withoutMnemonic(action->text()) == caption && action->isEnabled()) return action;
        throw NotThere("no usable menu entry " + caption);
    };
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* bar = window->findChild<QMenuBar*>();
        if (bar == nullptr || !bar->isVisible()) continue;
        QAction* top = entryOf(bar->actions(), topEntry);
        clickAction(*bar, bar->actionGeometry(top));
        if (entry.isEmpty()) return;
        wait(100);
        QMenu* menu = top->menu();
        return clickAction(*menu, menu->actionGeometry(entryOf(menu->actions(), entry)));
    }
    throw NotThere("no menu bar");
}

void Person::pointAt(const QString& canvas, double across, double down) {
    QWidget* widget = find(canvas);
    QTest::mouseMove(widget, QPoint(static_cast<int>(widget->width() * across),
                                    static_cast<int>(widget->height() * down)));
}

void Person::chooseColour(int red, int green, int blue) {
    auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) throw NotThere("no colour dialog");
    dialog->setCurrentColor(QColor(red, green, blue));
    for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>())
        if (button->text().contains("OK") || button->text().startsWith("确定"))
            return QTest::mouseClick(button, Qt::LeftButton);
    throw NotThere("the colour dialog has no button to take it");
}

QString Person::answer(const QString& buttonText) {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) throw NotThere("no message box");
    for (QAbstractButton* button : box->buttons()) {
        if (!button->text().startsWith(buttonText)) continue;
        const QString text = box->text();
        QTest::mouseClick(button, Qt::LeftButton);
        return text;
    }
    throw NotThere("the box has no button " + buttonText + ": " + box->text());
}

}  // namespace desk::tour
