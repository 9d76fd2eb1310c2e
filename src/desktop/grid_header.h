#pragma once

#include <QHeaderView>

#include "ui/grid.h"

namespace desk::desktop {

/// The fixed rows of a grid, above each other; equal neighbours of a merging grid as one. In the midst of a
/// change it paints the cells that are there.
class GridHeader : public QHeaderView {
  public:
    GridHeader(Grid& grid, QWidget* parent);
    QSize sizeHint() const override;

  protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

  private:
    void paintRows(QPainter& painter, const QRect& rect, int section) const;
    /// The cell of that fixed row that the section belongs to, in the header's own coordinates.
    QRect mergedCell(int row, int section, const QRect& rect) const;
    int rowHeight() const;

    Grid& grid_;
};

}  // namespace desk::desktop
