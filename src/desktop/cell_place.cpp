#include "desktop/cell_place.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

#include "desktop/binding.h"
#include "ui/cell_editor.h"

namespace desk::desktop {

namespace {

constexpr const char* inCellProperty = "inCell";

/// The button at the right edge of the same cell takes its room from the text.
int buttonRoom(const QWidget* viewport, const QRect& cell) {
    for (const auto* button : viewport->findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly))
        if (!button->isHidden() && cell.contains(button->geometry())) return button->width();
    return 0;
}

class PartInCell : public QObject {
  public:
    PartInCell(QTableView* view, Control& control, QWidget* part, InCell place)
        : QObject(part), view_(view), control_(control), part_(part), place_(place) {
        part->setParent(view->viewport());
        part->setProperty(inCellProperty, true);
        part->installEventFilter(this);
        part->setMinimumSize(0, 0);
        // A click on the button of a cell leaves the person in the cell.
        if (place == InCell::rightEdge) part->setFocusPolicy(Qt::TabFocus);
        whenCellsMove(view, this, [this] { lay(); });
        follow(this, control.touched, [this] { lay(); });
        follow(this, control.gone, [this] { part_->removeEventFilter(this); });
        lay();
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Hide && part_->hasFocus() && view_->isVisible())
            view_->setFocus(Qt::PopupFocusReason);
        return event->type() == QEvent::KeyPress && closes(*static_cast<QKeyEvent*>(event));
    }

  private:
    bool closes(const QKeyEvent& event) {
        auto* editor = dynamic_cast<CellEditor*>(&control_);
        if (editor == nullptr || event.key() != Qt::Key_Escape) return false;
        enter([editor] { editor->escape(); });
        return true;
    }

    void lay() {
        if (!isBound(part_) || !control_.visible() || control_.anchor() == nullptr) return;
        const QRect cell = anchorCellIn(*view_, control_);
        part_->setGeometry(place_ == InCell::all ? cell
                                                 : cell.adjusted(cell.width() - cell.height(), 0, 0, 0));
        if (auto* edit = qobject_cast<QLineEdit*>(part_)) fitText(*edit, cell);
        part_->setVisible(true);
        if (place_ == InCell::rightEdge) part_->raise();
    }

    void fitText(QLineEdit& edit, const QRect& cell) {
        edit.setTextMargins(0, 0, buttonRoom(view_->viewport(), cell), 0);
        const auto index = view_->indexAt(cell.center());
        edit.setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
    }

    QTableView* view_;
    Control& control_;
    QWidget* part_;
    InCell place_;
};

/// A view of another size moves its last rows to its lower edge, of which no signal tells.
class AnotherSize : public QObject {
  public:
    AnotherSize(QWidget* viewport, QObject* context, std::function<void()> moved)
        : QObject(context), moved_(std::move(moved)) {
        viewport->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize)
            QMetaObject::invokeMethod(
                this, [this] { moved_(); }, Qt::QueuedConnection);
        return false;
    }

  private:
    std::function<void()> moved_;
};

}  // namespace

QRect anchorCellIn(const QTableView& view, const Control& control) {
    const auto* grid = dynamic_cast<const Grid*>(control.anchor());
    if (grid == nullptr || !control.anchorCell()) return {};
    const Cell& cell = *control.anchorCell();
    return view.visualRect(view.model()->index(cell.row - grid->fixedRows(), cell.column));
}

void whenCellsMove(QTableView* view, QObject* context, const std::function<void()>& moved) {
    for (const QHeaderView* header : {view->horizontalHeader(), view->verticalHeader()}) {
        QObject::connect(header, &QHeaderView::sectionResized, context, moved);
        QObject::connect(header, &QHeaderView::geometriesChanged, context, moved);
    }
    for (const QScrollBar* bar : {view->horizontalScrollBar(), view->verticalScrollBar()})
        QObject::connect(bar, &QScrollBar::valueChanged, context, moved);
    new AnotherSize(view->viewport(), context, moved);
}

void layInCell(QTableView* view, Control& control, QWidget* part, InCell place) {
    new PartInCell(view, control, part, place);
}

std::vector<QWidget*> partsInCells(const QWidget* view) {
    std::vector<QWidget*> parts;
    const auto* table = qobject_cast<const QTableView*>(view);
    if (table == nullptr) return parts;
    for (QWidget* child : table->viewport()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (child->property(inCellProperty).toBool()) parts.push_back(child);
    return parts;
}

}  // namespace desk::desktop
