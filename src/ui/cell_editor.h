#pragma once

#include "ui/fields.h"
#include "ui/grid.h"

namespace desk {

/// A text box over one cell of a grid: what is typed stands in the cell at once. It is shown while it is
/// open, and closes as soon as another cell is current, so that nothing is typed into one that it does not
/// lie over.
class CellEditor : public TextBox {
  public:
    /// Closed at first; `grid` must live longer.
    CellEditor(Place place, std::string name, Grid& grid);

    /// Lies over the current cell with its text, has the focus, and the text is selected.
    void open();
    void close() { setVisible(false); }

    /// What people do: the Escape key. What was typed stays.
    void escape();

  private:
    Grid& grid_;
};

}  // namespace desk
