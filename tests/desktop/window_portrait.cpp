#include "desktop/window_portrait.h"

#include <fmt/format.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>

#include "base/text.h"
#include "desktop/cell_place.h"
#include "desktop/convert.h"
#include "ui/canvas.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/marker.h"
#include "ui/panel.h"
#include "ui/tree.h"

namespace desk::desktop {

namespace {

std::string quoted(QString text) {
    text.remove('\r').replace("\n", "\\n");
    return "\"" + utf8(text) + "\"";
}

std::string iso(const QDate& day) {
    return utf8(day.toString(Qt::ISODate));
}

/// What is amiss where a widget shows one thing and its control holds another.
std::string unless(bool same, std::string_view held) {
    return same ? std::string() : fmt::format(" BUT HOLDS \"{}\"", held);
}

std::string shownBy(const QLineEdit& line, const TextBox& box) {
    std::string shown = quoted(line.displayText());
    if (line.hasSelectedText()) shown += " selects " + quoted(line.selectedText());
    if (line.isReadOnly()) shown += " locked";
    const QPalette& colours = line.palette();
    const bool isFlat = !line.hasFrame() && colours.color(QPalette::Base) == colours.color(QPalette::Window);
    if (line.isReadOnly() != isFlat) shown += " BUT LOOKS OTHERWISE";
    if (line.alignment().testFlag(Qt::AlignRight)) shown += " at the right";
    if (line.textMargins().right() > 0) shown += " clear of its button";
    if (!line.toolTip().isEmpty()) shown += " cue " + quoted(line.toolTip());
    if (line.toolTip().isEmpty() != line.actions().isEmpty()) shown += " BUT WITHOUT SIGN AND WORDS TOGETHER";
    return shown + unless(utf8(line.text()) == box.text(), box.text());
}

std::string shownBy(const QPlainTextEdit& edit, const TextBox& box) {
    QString held = text(box.text());
    held.replace("\r\n", "\n");
    return quoted(edit.toPlainText()) + (edit.isReadOnly() ? " locked" : "") +
           unless(edit.toPlainText() == held, box.text());
}

std::string shownBy(const QAbstractButton& button) {
    const std::string tick = !button.isCheckable() ? "" : button.isChecked() ? "[x] " : "[ ] ";
    return tick + quoted(button.text());
}

std::string shownBy(const QComboBox& combo, const ComboBox& control) {
    const QIcon mark = combo.itemIcon(combo.currentIndex());
    const std::string colour =
        mark.isNull() ? "" : " " + utf8(mark.pixmap(8).toImage().pixelColor(4, 3).name());
    return fmt::format("{}{} of {}", quoted(combo.currentText()), colour, combo.count()) +
           unless(combo.currentIndex() == control.index() && combo.count() == control.count(),
                  control.text());
}

std::string shownBy(const QDateEdit& edit, const DatePicker& picker) {
    const auto& line = *edit.findChild<QLineEdit*>();
    return quoted(edit.text()) + (line.hasSelectedText() ? " selects " + quoted(line.selectedText()) : "") +
           unless(edit.date() == date(picker.value()), isoDay(picker.value()));
}

std::string shownBy(const QCalendarWidget& calendar, const MonthCalendar& control) {
    return fmt::format("{} in {}-{:02}", iso(calendar.selectedDate()), calendar.yearShown(),
                       calendar.monthShown()) +
           unless(calendar.selectedDate() == date(control.value()), isoDay(control.value()));
}

/// Its lines, the marked ones in brackets, and where the keyboard stands.
std::string shownBy(const QListWidget& list, const ListBox& control) {
    std::vector<std::string> lines;
    std::vector<std::string> marked;
    for (int line = 0; line < list.count(); ++line) {
        const std::string text = utf8(list.item(line)->text());
        const bool isMarked = list.item(line)->isSelected();
        if (isMarked) marked.push_back(text);
        lines.push_back(isMarked ? "[" + text + "]" : text);
    }
    return fmt::format("{} at line {}", join(lines, " "), list.currentRow() + 1) +
           unless(marked == control.selectedTexts(), join(control.selectedTexts(), " "));
}

/// ">" before what stands at the right.
std::string sign(const QVariant& alignment) {
    return (alignment.toInt() & Qt::AlignRight) != 0 ? ">" : "";
}

/// The text of a cell, or what its picture says.
std::string cellOf(const QModelIndex& cell) {
    const QString picture = cell.data(Qt::ToolTipRole).toString();
    if (!picture.isEmpty()) return utf8("<" + picture + ">");
    const bool isBold = cell.data(Qt::FontRole).value<QFont>().bold();
    return sign(cell.data(Qt::TextAlignmentRole)) + utf8(cell.data().toString()) + (isBold ? " bold" : "");
}

/// The cells of a row that are in view, with how many rows they stand for.
std::string rowIn(const QTableView& view, int row) {
    std::vector<std::string> cells;
    for (int column = 0; column < view.model()->columnCount(); ++column) {
        if (view.isColumnHidden(column)) continue;
        const int rows = view.rowSpan(row, column);
        cells.push_back(cellOf(view.model()->index(row, column)) +
                        (rows > 1 ? fmt::format(" for {} rows", rows) : ""));
    }
    return join(cells, "|");
}

std::string marksIn(const QTableView& view) {
    const auto marked = view.selectionModel()->selectedIndexes();
    if (marked.isEmpty()) return "";
    const auto& model = *view.model();
    if (marked.size() > 1 && marked.size() == model.rowCount() * model.columnCount()) return " marks all";
    if (marked.size() == 1)
        return fmt::format(" marks {} {}", marked.first().row() + 1, marked.first().column());
    return fmt::format(" marks row {}", marked.first().row() + 1);
}

std::string titlesOf(const QHeaderView& header) {
    std::vector<std::string> titles;
    for (int column = 0; column < header.count(); ++column)
        if (!header.isSectionHidden(column))
            titles.push_back(sign(header.model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole)) +
                             utf8(header.model()->headerData(column, Qt::Horizontal).toString()));
    return join(titles, "|");
}

/// How far it has been scrolled, and whether the place of the keyboard is in view.
std::string scrolled(const QAbstractItemView& view) {
    const QScrollBar& bar = *view.verticalScrollBar();
    std::string shown = bar.value() == 0               ? ""
                        : bar.value() == bar.maximum() ? ", scrolled to its end"
                                                       : ", scrolled";
    const QModelIndex at = view.currentIndex();
    if (at.isValid() && !view.viewport()->rect().intersects(view.visualRect(at))) shown += ", out of view";
    return shown;
}

std::string shownBy(const QTableView& view, const Grid& grid) {
    const QModelIndex at = view.currentIndex();
    std::string shown = fmt::format("{} rows", view.model()->rowCount());
    if (at.isValid())
        shown += fmt::format(", at {} {}: {}", at.row() + 1, at.column(), rowIn(view, at.row()));
    if (const QVariant back = at.data(Qt::BackgroundRole);
        back.isValid() && at.column() >= grid.fixedColumns())
        shown += " on " + utf8(back.value<QColor>().name());
    shown += scrolled(view);
    const std::string marks = marksIn(view);
    const bool agree = marks.empty() || marks == " marks all" ||
                       (at.row() + grid.fixedRows() == grid.row() &&
                        (grid.selection() == GridSelection::row || at.column() == grid.column()));
    return shown + marks + unless(agree, fmt::format("{} {}", grid.row(), grid.column()));
}

void addTicked(const QAbstractItemModel& model, const QModelIndex& parent, std::vector<std::string>& texts) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex node = model.index(row, 0, parent);
        if (node.data(Qt::CheckStateRole).toInt() == Qt::Checked)
            texts.push_back(utf8(node.data().toString()));
        addTicked(model, node, texts);
    }
}

int nodesBelow(const QAbstractItemModel& model, const QModelIndex& parent) {
    int nodes = model.rowCount(parent);
    for (int row = model.rowCount(parent); row-- > 0;)
        nodes += nodesBelow(model, model.index(row, 0, parent));
    return nodes;
}

std::string shownBy(const QTreeView& view, const Tree& tree) {
    const int nodes = nodesBelow(*view.model(), {});
    int lines = 0;
    for (QModelIndex line = view.model()->index(0, 0); line.isValid(); line = view.indexBelow(line)) ++lines;
    std::string shown = fmt::format("{} nodes", nodes);
    if (lines < nodes) shown += fmt::format(" on {} lines", lines);
    if (view.currentIndex().isValid()) shown += ", at " + quoted(view.currentIndex().data().toString());
    shown += scrolled(view);
    std::string marked;
    for (const auto& node : view.selectionModel()->selectedIndexes()) marked += utf8(node.data().toString());
    if (!marked.empty()) shown += fmt::format(" marks \"{}\"", marked);
    std::vector<std::string> ticked;
    addTicked(*view.model(), {}, ticked);
    if (!ticked.empty()) shown += fmt::format(" ticks \"{}\"", join(ticked, ","));
    const std::string held(tree.selected() != nullptr ? tree.selected()->text() : std::string_view());
    return shown + unless(marked == utf8(onOneLine(held)), held);
}

std::string colourOf(QWidget& area) {
    return utf8(area.grab().toImage().pixelColor(area.rect().center()).name());
}

/// A marker's text, and the cell that it covers, with the line that parts it from the next.
std::string overACell(const QWidget& marker) {
    const auto& view = dynamic_cast<QTableView&>(*marker.parentWidget());
    const QRect at = marker.geometry().translated(-view.viewport()->pos());
    const QModelIndex cell = view.indexAt(at.center());
    const bool covers = at == view.visualRect(cell).adjusted(0, 0, 1, 1);
    return fmt::format("{} over {} {}{}", quoted(marker.accessibleName()), cell.row(), cell.column(),
                       covers ? "" : " askew");
}

std::string panelsOf(const QWidget& bar) {
    std::vector<std::string> texts;
    for (const auto* panel : bar.findChildren<QLabel*>()) texts.push_back(utf8(panel->text()));
    return "\"" + join(texts, "|") + "\"";
}

/// What the widget of that control shows.
std::string shownBy(Control& control, QWidget& widget) {
    if (auto* box = dynamic_cast<TextBox*>(&control)) {
        if (auto* line = qobject_cast<QLineEdit*>(&widget)) return shownBy(*line, *box);
        return shownBy(dynamic_cast<QPlainTextEdit&>(widget), *box);
    }
    if (auto* button = qobject_cast<QAbstractButton*>(&widget)) return shownBy(*button);
    if (auto* combo = dynamic_cast<ComboBox*>(&control))
        return shownBy(dynamic_cast<QComboBox&>(widget), *combo);
    if (auto* picker = dynamic_cast<DatePicker*>(&control))
        return shownBy(dynamic_cast<QDateEdit&>(widget), *picker);
    if (auto* month = dynamic_cast<MonthCalendar*>(&control))
        return shownBy(dynamic_cast<QCalendarWidget&>(widget), *month);
    if (auto* list = dynamic_cast<ListBox*>(&control))
        return shownBy(dynamic_cast<QListWidget&>(widget), *list);
    if (auto* grid = dynamic_cast<Grid*>(&control)) return shownBy(dynamic_cast<QTableView&>(widget), *grid);
    if (auto* tree = dynamic_cast<Tree*>(&control)) return shownBy(dynamic_cast<QTreeView&>(widget), *tree);
    if (auto* tabs = qobject_cast<QTabBar*>(&widget)) return quoted(tabs->tabText(tabs->currentIndex()));
    if (auto* label = qobject_cast<QLabel*>(&widget)) return quoted(label->text());
    if (dynamic_cast<Swatch*>(&control) != nullptr || dynamic_cast<Canvas*>(&control) != nullptr)
        return colourOf(widget);
    if (dynamic_cast<Marker*>(&control) != nullptr) return overACell(widget);
    if (dynamic_cast<StatusBar*>(&control) != nullptr) return panelsOf(widget);
    return "there";
}

/// How one part lies to another, neither in pixels.
std::string relation(const QRect& part, const QRect& to) {
    if (part == to) return "over";
    if (to.contains(part)) return to.right() - part.right() <= 3 ? "inside, at the right of" : "inside";
    if (part.top() == to.bottom() + 1 && part.left() == to.left()) return "below";
    if (part.top() > to.bottom()) return "lower than";
    if (part.bottom() + 1 == to.top()) return "above";
    const char* along = part.top() == to.top() ? "down" : part.bottom() == to.bottom() ? "up" : "";
    if (part.top() == to.top() && part.left() > to.right() + 1) return "beside";
    if (part.left() == to.right() + 1) return fmt::format("right, {}, of", along);
    if (part.right() == to.left() - 1) return fmt::format("left, {}, of", along);
    return "across";
}

/// Where it floats: at which other control or cell, and whether that is in view.
std::string placeOf(const Person& person, const Control& control, const QWidget& part) {
    if (control.anchor() == nullptr) {
        const bool atHalf =
            dynamic_cast<const Panel*>(&control) != nullptr && part.y() == part.parentWidget()->height() / 2;
        return atHalf ? " over the lower half" : "";
    }
    QWidget& at = person.at(*control.anchor());
    const QWidget* window = &person.window();
    QRect to(at.mapTo(window, QPoint()), at.size());
    std::string name = control.anchor()->name();
    std::string hidden;
    if (const auto& cell = control.anchorCell()) {
        auto& table = dynamic_cast<QTableView&>(at);
        const QRect inView = anchorCellIn(table, control);
        if (!table.viewport()->rect().contains(inView)) hidden = ", out of view";
        to = inView.translated(table.viewport()->mapTo(window, QPoint()));
        name += fmt::format(" {} {}", cell->row, cell->column);
    }
    return fmt::format(" {} {}{}", relation({part.mapTo(window, QPoint()), part.size()}, to), name, hidden);
}

/// Whether something of it lies within what holds it.
bool isInSight(const QWidget& widget) {
    return widget.isWindow() || widget.geometry().intersects(widget.parentWidget()->rect());
}

/// The control that has the focus, or what else has it.
std::string focusIn(const QWidget& window) {
    const QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr || focus->window() != &window) return "elsewhere";
    while (focus->objectName().isEmpty() && focus->parentWidget() != nullptr) focus = focus->parentWidget();
    return utf8(focus->objectName());
}

/// What is looked for, and whether the line lies over what it has found.
std::string finding(const QWidget& bar) {
    const auto& view = dynamic_cast<const QAbstractItemView&>(*bar.parentWidget());
    const QRect found = view.visualRect(view.currentIndex()).translated(view.viewport()->pos());
    return quoted(bar.findChild<QLineEdit*>()->text()) + " " + utf8(bar.findChild<QLabel*>()->text()) +
           (bar.geometry().intersects(found) ? " OVER IT" : "");
}

/// What has opened for a moment over the window: a list, a calendar, a menu.
std::string popup() {
    QWidget* open = QApplication::activePopupWidget();
    if (open == nullptr) return "";
    if (const auto* menu = qobject_cast<QMenu*>(open)) {
        std::vector<std::string> entries;
        for (const QAction* entry : menu->actions())
            if (!entry->isSeparator())
                entries.push_back(utf8(entry->text()) + (entry->isEnabled() ? "" : " (grey)"));
        return join(entries, ", ");
    }
    return qobject_cast<QCalendarWidget*>(open) != nullptr || open->findChild<QCalendarWidget*>() != nullptr
               ? "a calendar"
               : "a list";
}

}  // namespace

Portrait seenBy(const Person& person, Screen& screen) {
    Portrait lines;
    const auto add = [&](const std::string& what, const std::string& shown) {
        if (!shown.empty()) lines.emplace_back(what, shown);
    };
    for (Control* control : screen.controls()) {
        auto* widget = person.window().findChild<QWidget*>(text(control->name()));
        if (widget == nullptr || !widget->isVisible()) continue;
        add(control->name(), shownBy(*control, *widget) + placeOf(person, *control, *widget) +
                                 (widget->accessibleDescription() == "必填" ? " demanded" : "") +
                                 (isInSight(*widget) ? "" : " out of sight") +
                                 (widget->isEnabled() ? "" : " disabled"));
    }
    for (const auto* header : person.window().findChildren<QHeaderView*>())
        if (header->isVisible() && header->orientation() == Qt::Horizontal)
            add("titles of " + utf8(header->parentWidget()->objectName()), titlesOf(*header));
    for (const auto* bar : person.window().findChildren<QWidget*>("qt_findbar"))
        if (bar->isVisible()) add("finding", finding(*bar));
    std::vector<std::string> hints;
    for (const auto* hint : person.window().findChildren<QLabel*>("qt_hint"))
        if (hint->isVisible()) hints.push_back(quoted(hint->text()));
    add("hint", join(hints, " "));
    for (const auto* count : person.window().findChildren<QLabel*>(QRegularExpression("数目$")))
        add("count", utf8(count->text()));
    add("tip", QToolTip::isVisible() ? quoted(QToolTip::text()) : "");
    add("opened", popup());
    const QString copied = QApplication::clipboard()->text();
    add("clipboard", copied.isEmpty() ? "" : quoted(copied));
    add("focus", focusIn(person.window()));
    return lines;
}

}  // namespace desk::desktop
