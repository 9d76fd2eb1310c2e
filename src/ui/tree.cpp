#include "ui/tree.h"

#include "base/failure.h"

namespace desk {

Tree::Tree(Place place, std::string name, Style style) : Control(place, std::move(name)), style_(style) {}

TreeNode& Tree::add(TreeNode* parent, std::string_view key, std::string_view text, std::string_view image) {
    if (!key.empty() && byKey_.contains(key))
        throw RuntimeFailure(failure::duplicateKey, "集合中的关键字不唯一");
    structureWillChange();
    auto& siblings = parent != nullptr ? parent->children_ : roots_;
    auto& node = *siblings.emplace_back(std::make_unique<TreeNode>());
    node.key_ = key;
    node.text_ = text;
    node.image_ = image;
    node.parent_ = parent;
    node.row_ = static_cast<int>(siblings.size()) - 1;
    if (!key.empty()) byKey_.emplace(node.key_, &node);
    structureHasChanged();
    return node;
}

void Tree::forget(const TreeNode& node) {
    for (const auto& child : node.children_) forget(*child);
    if (!node.key_.empty()) byKey_.erase(node.key_);
    if (selected_ == &node) selected_ = nullptr;
}

void Tree::remove(TreeNode& node) {
    structureWillChange();
    forget(node);
    auto& siblings = node.parent_ != nullptr ? node.parent_->children_ : roots_;
    const auto place = static_cast<std::size_t>(node.row_);
    siblings.erase(siblings.begin() + node.row_);
    for (std::size_t i = place; i < siblings.size(); ++i) siblings[i]->row_ = static_cast<int>(i);
    structureHasChanged();
}

void Tree::clear() {
    if (roots_.empty()) return;
    structureWillChange();
    selected_ = nullptr;
    byKey_.clear();
    roots_.clear();
    structureHasChanged();
}

TreeNode* Tree::find(std::string_view key) const {
    const auto found = byKey_.find(key);
    return found == byKey_.end() ? nullptr : found->second;
}

void Tree::select(TreeNode* node) {
    if (selected_ == node) return;
    selected_ = node;
    selectionChanged();
}

void Tree::setText(TreeNode& node, std::string_view text) {
    set(node.text_, text);
}
void Tree::setChecked(TreeNode& node, bool checked) {
    set(node.checked_, checked);
}
void Tree::setExpanded(TreeNode& node, bool expanded) {
    set(node.expanded_, expanded);
}

void Tree::click(TreeNode& node) {
    if (!usable()) return;
    select(&node);
    nodeClicked(node);
}

void Tree::moveTo(TreeNode& node) {
    if (movingKeys_ == MovingKeys::click) return click(node);
    if (usable()) select(&node);
}

void Tree::tick(TreeNode& node, bool checked) {
    if (!usable() || node.checked_ == checked) return;
    setChecked(node, checked);
    nodeChecked(node);
}

void Tree::endUpdate() {
    if (--updating_ > 0 || !changedWhileUpdating_) return;
    changedWhileUpdating_ = false;
    structureChanged();
}

void Tree::structureWillChange() {
    if (updating_ == 0)
        structureChanging();
    else if (!changedWhileUpdating_) {
        changedWhileUpdating_ = true;
        structureChanging();
    }
}

void Tree::structureHasChanged() {
    if (updating_ == 0) structureChanged();
}

}  // namespace desk
