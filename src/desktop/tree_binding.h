#pragma once

#include <QAbstractItemModel>
#include <QWidget>

#include "ui/tree.h"

namespace desk::desktop {

/// The nodes of a Tree as Qt asks for them, without a copy of them. A single node that comes or goes leaves
/// the reader's place as it is.
class TreeModel : public QAbstractItemModel {
  public:
    explicit TreeModel(Tree& tree, QObject* parent = nullptr);

    QModelIndex indexOf(const TreeNode* node) const;
    static TreeNode* nodeOf(const QModelIndex& index);
    /// Whether nodes come and go just now: what a view still shows may be gone, and cannot be clicked.
    bool isAway() const { return away_; }

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    const TreeNodes& children(const QModelIndex& parent) const;
    void beginChange();
    void endChange();

    Tree& tree_;
    bool away_ = false;  ///< many nodes come and go just now, or the tree itself has gone: nothing is shown
};

QWidget* treeWidget(Tree& tree);

}  // namespace desk::desktop
