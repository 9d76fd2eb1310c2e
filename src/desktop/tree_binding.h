#pragma once

#include <QAbstractItemModel>
#include <QWidget>

#include "ui/tree.h"

namespace desk::desktop {

/// The nodes of a Tree as Qt asks for them, without a copy of them.
class TreeModel : public QAbstractItemModel {
  public:
    explicit TreeModel(Tree& tree, QObject* parent = nullptr);

    QModelIndex indexOf(const TreeNode* node) const;
    static TreeNode* nodeOf(const QModelIndex& index);

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    const std::vector<std::unique_ptr<TreeNode>>& children(const QModelIndex& parent) const;

    Tree& tree_;
    bool away_ = false;  ///< nodes come and go just now
};

QWidget* treeWidget(Tree& tree);

}  // namespace desk::desktop
