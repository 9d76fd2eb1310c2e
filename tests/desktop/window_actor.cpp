#include "desktop/window_actor.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QStyleOptionViewItem>
#include <QTabBar>
#include <QTableView>
#include <QTest>

#include "desktop/convert.h"
#include "desktop/screen_list.h"

namespace desk::desktop {

namespace {

void empty(QWidget* field) {
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
}

QModelIndex indexOf(const QAbstractItemModel& model, const TreeNode& node) {
    return model.index(node.row(), 0,
                       node.parent() != nullptr ? indexOf(model, *node.parent()) : QModelIndex());
}

QPoint middleOf(QAbstractItemView& view, const QModelIndex& index) {
    view.scrollTo(index);
    return view.visualRect(index).center();
}

QPoint boxOf(QAbstractItemView& view, const QModelIndex& index) {
    view.scrollTo(index);
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.rect = view.visualRect(index);
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    return view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view).center();
}

}  // namespace

QWidget* WindowActor::layOut(Screen& screen) {
    for (const KnownScreen& known : screenList())
        if (screen.name() == known.name) return known.layOut == nullptr ? nullptr : layoutOf(screen);
    return nullptr;
}

Person* WindowActor::personAt(const Screen& screen) const {
    const auto found = windows_.find(screen.name());
    return found == windows_.end() ? nullptr : found->second.get();
}

void WindowActor::shown(Screen& screen) {
    QWidget* window = layOut(screen);
    if (window == nullptr) return;
    // As the screens stand on the smallest display, and with every line of a list in reach.
    window->resize(1600, 1000);
    windows_[screen.name()] = std::make_unique<Person>(window);
}

void WindowActor::closed(const std::string& screen) {
    const auto found = windows_.find(screen);
    if (found == windows_.end()) return;
    found->second->window().hide();
    closed_.push_back(std::move(found->second));
    windows_.erase(found);
}

QWidget* WindowActor::reached(const Control& control) {
    const Person* person = personAt(control.screen());
    if (person == nullptr) return nullptr;
    // A list that has closed leaves no window active here.
    QWidget& shown = person->window();
    shown.activateWindow();
    if (!QTest::qWaitForWindowActive(&shown)) return nullptr;
    auto& widget = person->at(control);
    return widget.isVisible() && widget.isEnabled() ? &widget : nullptr;
}

void WindowActor::focus(Control& control) {
    if (auto* widget = reached(control)) Person::click(*widget, widget->rect().center());
}

void WindowActor::type(TextBox& box, const std::string& wanted) {
    auto* widget = reached(box);
    if (widget == nullptr) return;
    if (!widget->hasFocus()) focus(box);
    empty(widget);
    Person::type(*widget, text(wanted));
}

void WindowActor::clickBox(Control& control) {
    if (auto* widget = reached(control)) Person::click(*widget, {8, widget->height() / 2});
}

void WindowActor::pick(ComboBox& combo, const std::string& wanted) {
    auto* box = reached<QComboBox>(combo);
    const int line = box != nullptr ? box->findText(text(wanted)) : -1;
    if (line < 0) return;
    box->setFocus(Qt::MouseFocusReason);
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(line, 0));
    QTest::keyClick(box->view(), Qt::Key_Return);
}

void WindowActor::pick(DatePicker& picker, const DateTime& day) {
    auto* widget = reached(picker);
    if (widget == nullptr) return;
    widget->setFocus(Qt::TabFocusReason);
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    Person::type(*widget, text(isoDay(day)));
}

void WindowActor::clickLine(ListBox& list, int line, void (*hit)(QWidget&, QPoint)) {
    if (auto* view = reached<QAbstractItemView>(list))
        hit(*view->viewport(), middleOf(*view, view->model()->index(line, 0)));
}

void WindowActor::click(Tree& tree, TreeNode& node) {
    if (auto* view = reached<QAbstractItemView>(tree))
        Person::click(*view->viewport(), middleOf(*view, indexOf(*view->model(), node)));
}

void WindowActor::tick(Tree& tree, TreeNode& node) {
    if (auto* view = reached<QAbstractItemView>(tree))
        Person::click(*view->viewport(), boxOf(*view, indexOf(*view->model(), node)));
}

void WindowActor::clickCell(Grid& grid, int row, int column, void (*hit)(QWidget&, QPoint)) {
    if (auto* view = reached<QAbstractItemView>(grid))
        hit(*view->viewport(), middleOf(*view, view->model()->index(row - grid.fixedRows(), column)));
}

void WindowActor::choose(TabStrip& strip, int index) {
    if (auto* bar = reached<QTabBar>(strip)) Person::click(*bar, bar->tabRect(index).center());
}

void WindowActor::clickDay(MonthCalendar& calendar, const DateTime& day) {
    auto* shown = reached<QCalendarWidget>(calendar);
    if (shown == nullptr) return;
    const QDate wanted = date(day);
    shown->setCurrentPage(wanted.year(), wanted.month());
    auto* days = shown->findChild<QTableView*>("qt_calendar_calendarview");
    const QAbstractItemModel& cells = *days->model();
    // The first of the month is the first cell that says so; the header stands above and beside the days.
    bool isInMonth = false;
    for (int cell = cells.columnCount(); cell < cells.rowCount() * cells.columnCount(); ++cell) {
        const auto index = cells.index(cell / cells.columnCount(), cell % cells.columnCount());
        isInMonth = isInMonth || index.data().toInt() == 1;
        if (isInMonth && index.data().toInt() == wanted.day())
            return Person::click(*days->viewport(), days->visualRect(index).center());
    }
}

}  // namespace desk::desktop
