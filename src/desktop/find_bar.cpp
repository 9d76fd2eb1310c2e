#include "desktop/find_bar.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

#include "desktop/binding.h"
#include "desktop/row_delegate.h"

namespace desk::desktop {

FindBar::FindBar(QAbstractItemView* view, RowDelegate* rows, Searched searched)
    : QFrame(view),
      view_(view),
      rows_(rows),
      searched_(std::move(searched)),
      line_(new QLineEdit),
      result_(new QLabel) {
    setObjectName("qt_findbar");
    setFrameStyle(QFrame::Panel | QFrame::Raised);
    setAutoFillBackground(true);
    line_->setObjectName("qt_find");
    line_->setAccessibleName("查找");
    line_->setPlaceholderText("查找");
    line_->setToolTip("F3 下一个，Shift+F3 上一个，回车选中，Esc 关闭");
    line_->setClearButtonEnabled(true);
    auto* box = new QHBoxLayout(this);
    box->setContentsMargins(3, 3, 3, 3);
    box->addWidget(line_, 1);
    box->addWidget(result_);
    connect(line_, &QLineEdit::textEdited, this, [this] { lookAgain(); });
    line_->installEventFilter(this);
    view->installEventFilter(this);
    hide();
}

FindBar* FindBar::of(const QAbstractItemView* view) {
    for (QObject* child : view->children())
        if (auto* bar = dynamic_cast<FindBar*>(child)) return bar;
    return nullptr;
}

void FindBar::open() {
    result_->clear();
    lay();
    setVisible(true);
    raise();
    line_->setFocus(Qt::ShortcutFocusReason);
    line_->selectAll();
}

void FindBar::goOn(Towards towards) {
    if (!isBound(view_)) return;
    if (!isVisible()) open();
    Wanted wanted(utf8(line_->text()));
    if (wanted.isEmpty()) return;
    const QModelIndex from = rows_->marked().isValid() ? rows_->marked() : view_->currentIndex();
    show(searched_.find(wanted, from, towards));
}

/// While the text is being typed the place stays as long as it still holds it.
void FindBar::lookAgain() {
    Wanted wanted(utf8(line_->text()));
    if (wanted.isEmpty()) return show({});
    const QModelIndex present = rows_->marked();
    if (present.isValid() && wanted.isIn(utf8(present.data().toString()))) return show(present);
    show(searched_.find(wanted, present, Towards::next));
}

void FindBar::show(const QModelIndex& found) {
    rows_->mark(found);
    result_->setText(found.isValid() || line_->text().isEmpty() ? QString() : "未找到");
    if (!found.isValid()) return;
    view_->scrollTo(found);
    if (placeOf(found).intersects(foot())) view_->scrollTo(found, QAbstractItemView::PositionAtCenter);
    lay();
    // The keyboard goes on from here, and nothing is selected or clicked.
    view_->selectionModel()->setCurrentIndex(found, QItemSelectionModel::NoUpdate);
}

void FindBar::close() {
    rows_->mark({});
    view_->setFocus(Qt::OtherFocusReason);
    hide();
}

void FindBar::take() {
    const QPersistentModelIndex found = rows_->marked();
    if (!found.isValid()) return goOn(Towards::next);
    close();
    searched_.click(found);
}

bool FindBar::takeKey(int key, Qt::KeyboardModifiers modifiers) {
    switch (key) {
        case Qt::Key_Escape:
            close();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            take();
            return true;
        case Qt::Key_F3:
            goOn(modifiers & Qt::ShiftModifier ? Towards::previous : Towards::next);
            return true;
        case Qt::Key_Down:
            goOn(Towards::next);
            return true;
        case Qt::Key_Up:
            goOn(Towards::previous);
            return true;
        default:
            return false;
    }
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view_) {
        if (event->type() == QEvent::Resize) lay();
        return false;
    }
    if (event->type() != QEvent::KeyPress || !isBound(view_)) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    return takeKey(key.key(), key.modifiers());
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    event->accept();
}

QRect FindBar::placeOf(const QModelIndex& index) const {
    return view_->visualRect(index).translated(view_->viewport()->pos());
}

QRect FindBar::foot() const {
    const QRect inside = view_->viewport()->geometry();
    const int height = sizeHint().height();
    return QRect(inside.left(), inside.bottom() - height + 1, inside.width(), height);
}

void FindBar::lay() {
    QRect place = foot();
    const QModelIndex seen = rows_->marked().isValid() ? rows_->marked() : view_->currentIndex();
    // What stands at the very end cannot be scrolled away from the foot.
    if (placeOf(seen).intersects(place)) place.moveTop(view_->viewport()->y());
    setGeometry(place);
}

}  // namespace desk::desktop
