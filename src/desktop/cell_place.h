#pragma once

#include <QRect>
#include <QTableView>
#include <functional>
#include <vector>

#include "ui/control.h"

namespace desk::desktop {

/// Where the cell that `control` is anchored to lies in the viewport of its grid's view; empty where the view
/// shows no such cell.
QRect anchorCellIn(const QTableView& view, const Control& control);

/// Runs `moved` whenever the cells of `view` may lie elsewhere than before, while `context` lives.
void whenCellsMove(QTableView* view, QObject* context, const std::function<void()>& moved);

/// Where in a cell something lies.
enum class InCell {
    all,        ///< instead of the cell's own text
    rightEdge,  ///< as the button of a field
};

/// Lays `part`, which shows `control`, into the cell of `view` that the control is anchored to; it scrolls
/// with the cell, and the focus goes back to the view when it is hidden.
void layInCell(QTableView* view, Control& control, QWidget* part, InCell place);

/// The parts laid into cells of a view, in the order in which they were; none for any other widget.
std::vector<QWidget*> partsInCells(const QWidget* view);

}  // namespace desk::desktop
