#include "ui/cell_editor.h"

namespace desk {

CellEditor::CellEditor(Place place, std::string name, Grid& grid)
    : TextBox(place, std::move(name)), grid_(grid) {
    setVisible(false);
    enterMovesOn = false;
    changed += [this] {
        if (!visible()) return;
        grid_.setText(grid_.row(), grid_.column(), text());
        // Its cell may have been scrolled away.
        grid_.reveal(grid_.row());
    };
    grid_.currentChanged += [this] { close(); };
    // A grid that shrinks has another current row without a word.
    grid_.structureChanged += [this] {
        if (anchorCell() && anchorCell()->row != grid_.row()) close();
    };
}

void CellEditor::open() {
    // While it is closed a new text is none that was typed.
    close();
    setText(grid_.text(grid_.row(), grid_.column()));
    setAnchor(&grid_, Cell{grid_.row(), grid_.column()});
    setVisible(true);
    focus();
    selectAll();
}

void CellEditor::escape() {
    if (usable()) close();
}

}  // namespace desk
