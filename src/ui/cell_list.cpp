#include "ui/cell_list.h"

namespace desk {

CellList::CellList(Screen& screen, Grid& grid, const std::string& name)
    : button(screen, name + "按钮", "▼"),
      panel(screen, name + "面板"),
      list(panel, name + "列表"),
      grid_(grid) {
    button.setVisible(false);
    button.clicked += [this] { panel.toggle(); };
    list.setMovingKeys(MovingKeys::move);
}

void CellList::offer() {
    const Cell cell{grid_.row(), grid_.column()};
    button.setAnchor(&grid_, cell);
    panel.setAnchor(&grid_, cell);
    button.setVisible(true);
    button.focus();
}

void CellList::close() {
    panel.close();
    button.setVisible(false);
}

}  // namespace desk
