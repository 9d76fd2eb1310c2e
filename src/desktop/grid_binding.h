#pragma once

#include <QAbstractTableModel>
#include <QWidget>

#include "ui/grid.h"

namespace desk::desktop {

/// The rows of a Grid below its fixed ones, as Qt asks for them, without a copy of them. Qt may ask at any
/// moment, in the midst of a fill or when the grid has gone: it is told of as many rows and columns as were
/// there when a change was finished last, and of nothing in a cell that is not there.
class GridModel : public QAbstractTableModel {
  public:
    /// Whether the cell has a colour that the screen gave it.
    static constexpr int ownColourRole = Qt::UserRole;
    /// The name of the picture in the cell.
    static constexpr int pictureRole = Qt::UserRole + 1;

    explicit GridModel(Grid& grid, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    void takeCounts();
    QVariant cell(int row, int column, int role) const;
    QVariant header(int section, int role) const;

    Grid* grid_;    ///< null when it has gone
    int rows_ = 0;  ///< as Qt was told last
    int columns_ = 0;
};

QWidget* gridWidget(Grid& grid);

}  // namespace desk::desktop
