#include "support/actor.h"

#include "ui/screen.h"

namespace desk {

void ControlActor::focus(Control& control) {
    const std::string name = control.screen().name() + "/" + control.name();
    if (!control.usable() || focused_ == name) return;
    focused_ = name;
    control.focused();
}

void ControlActor::type(TextBox& box, const std::string& text) {
    focus(box);
    box.type(text);
}
void ControlActor::press(Button& button) {
    focus(button);
    button.click();
}
void ControlActor::click(Label& label) {
    focus(label);
    label.click();
}
void ControlActor::tick(CheckBox& box) {
    focus(box);
    box.click();
}
void ControlActor::tick(OptionButton& option) {
    focus(option);
    option.click();
}
void ControlActor::pick(ComboBox& combo, const std::string& text) {
    focus(combo);
    combo.pick(text);
}
void ControlActor::pick(DatePicker& picker, const DateTime& day) {
    focus(picker);
    picker.pick(day);
}
void ControlActor::click(ListBox& list, int line) {
    focus(list);
    list.click(line);
}
void ControlActor::doubleClick(ListBox& list, int line) {
    focus(list);
    list.click(line);
    list.doubleClick(line);
}
namespace {

/// What lies in a closed branch cannot be reached.
void openAbove(Tree& tree, const TreeNode& node) {
    for (TreeNode* above = node.parent(); above != nullptr; above = above->parent())
        if (tree.usable()) tree.setExpanded(*above, true);
}

}  // namespace

void ControlActor::click(Tree& tree, TreeNode& node) {
    focus(tree);
    openAbove(tree, node);
    tree.click(node);
}
void ControlActor::tick(Tree& tree, TreeNode& node) {
    focus(tree);
    // The box of a node is part of it: a press there selects it, too.
    if (tree.usable()) tree.select(&node);
    tree.tick(node, !node.checked());
}
void ControlActor::click(Grid& grid, int row, int column) {
    focus(grid);
    grid.click(row, column);
}
void ControlActor::doubleClick(Grid& grid, int row, int column) {
    click(grid, row, column);
    grid.doubleClick(row, column);
}
void ControlActor::choose(TabStrip& strip, int index) {
    strip.click(index);
}
void ControlActor::clickDay(MonthCalendar& calendar, const DateTime& day) {
    calendar.clickDay(day);
}

}  // namespace desk
