#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

namespace desk::desktop {

/// Draws the rows of trees and grids: shows a cut text in full while the pointer rests on it, and marks what
/// was found.
class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Marks one index, or none with an invalid one.
    void mark(const QModelIndex& found);
    QModelIndex marked() const { return marked_; }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    QPersistentModelIndex marked_;
};

}  // namespace desk::desktop
