#pragma once

#include <QAbstractTableModel>
#include <QWidget>

#include "ui/grid.h"

namespace desk::desktop {

/// The rows of a Grid below its fixed ones, as Qt asks for them, without a copy of them.
class GridModel : public QAbstractTableModel {
  public:
    /// Whether the cell has a colour that the screen gave it.
    static constexpr int ownColourRole = Qt::UserRole;

    explicit GridModel(Grid& grid, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    Grid& grid_;
    int rows_ = 0;  ///< as Qt was told last
    int columns_ = 0;
};

QWidget* gridWidget(Grid& grid);

}  // namespace desk::desktop
