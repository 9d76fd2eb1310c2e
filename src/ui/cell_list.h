#pragma once

#include <string>

#include "ui/choices.h"
#include "ui/grid.h"
#include "ui/panel.h"

namespace desk {

/// A list that drops down below a cell of a grid, from a button at the cell's right edge. Arrow keys look at
/// its lines, and Enter clicks one.
class CellList {
  public:
    /// Its controls are named after `name`; `grid` must live longer.
    CellList(Screen& screen, Grid& grid, const std::string& name);

    /// Shows the button in the current cell, with the focus.
    void offer();
    /// Takes list and button away.
    void close();

    const Item& item(int line) const { return list.items().at(static_cast<std::size_t>(line)); }

    Button button;
    Panel panel;
    ListBox list;

  private:
    Grid& grid_;
};

}  // namespace desk
