#include "desktop/row_delegate.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>

#include "desktop/tip.h"

namespace desk::desktop {

void RowDelegate::mark(const QModelIndex& found) {
    marked_ = found;
    if (auto* view = qobject_cast<QAbstractItemView*>(parent())) view->viewport()->update();
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QRect shown = option.rect & view->viewport()->rect();
    const bool isCut = sizeHint(option, index).width() > shown.width();
    const QString words = isCut ? index.data().toString() : index.data(Qt::ToolTipRole).toString();
    showTip(event->globalPos(), words, view);
    return true;
}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (!marked_.isValid() || index != marked_) return;
    option->state &= ~QStyle::State_Selected;
    option->backgroundBrush = QColor(255, 224, 130);
    option->palette.setColor(QPalette::Text, Qt::black);
}

}  // namespace desk::desktop
