#include "ui/tree.h"

#include <algorithm>
#include <new>
#include <type_traits>

#include "base/failure.h"

namespace desk {

const TreeNodes& TreeNode::children() const {
    static const TreeNodes none;
    return children_ != nullptr ? *children_ : none;
}

Tree::Tree(Place place, std::string name, Style style) : Control(place, std::move(name)), style_(style) {}

TreeNodes& Tree::siblingsUnder(TreeNode* parent) {
    if (parent == nullptr) return roots_;
    if (parent->children_ == nullptr) parent->children_ = &families_.emplace_back();
    return *parent->children_;
}

void Tree::write(TreeNode& node, std::string_view key, std::string_view text, std::string_view image) {
    char* chars = memory_.takeText(key.size() + text.size() + image.size());
    node.chars_ = chars;
    for (const auto part : {key, text, image}) chars = std::copy(part.begin(), part.end(), chars);
    node.keySize_ = static_cast<std::uint32_t>(key.size());
    node.textSize_ = static_cast<std::uint32_t>(text.size());
    node.imageSize_ = static_cast<std::uint32_t>(image.size());
}

TreeNode& Tree::add(TreeNode* parent, std::string_view key, std::string_view text, std::string_view image) {
    TreeNode* node = addIfNew(parent, key, text, image);
    if (node == nullptr) throw RuntimeFailure(failure::duplicateKey, "集合中的关键字不唯一");
    return *node;
}

TreeNode* Tree::addIfNew(TreeNode* parent, std::string_view key, std::string_view text,
                         std::string_view image) {
    if (!key.empty() && byKey_.holds(key)) return nullptr;
    auto& siblings = siblingsUnder(parent);
    const int row = static_cast<int>(siblings.size());
    structureWillChange(Step{Step::What::comes, parent, row});
    // Never destroyed one by one: a node holds nothing that would have to be let go.
    static_assert(std::is_trivially_destructible_v<TreeNode>);
    auto* node = new (memory_.take(sizeof(TreeNode))) TreeNode();
    write(*node, key, text, image);
    node->parent_ = parent;
    node->row_ = row;
    siblings.push_back(node);
    if (!key.empty()) byKey_.insert(*node);
    structureHasChanged();
    return node;
}

void Tree::forget(TreeNode& node) {
    for (TreeNode* child : node.children()) forget(*child);
    if (!node.key().empty()) byKey_.erase(node);
    if (selected_ == &node) selected_ = nullptr;
    Blocks::leave(&node, sizeof node);
}

void Tree::remove(TreeNode& node) {
    const Step step{Step::What::goes, node.parent_, node.row_};
    structureWillChange(step);
    forget(node);
    auto& siblings = siblingsUnder(step.parent);
    siblings.erase(siblings.begin() + step.row);
    for (auto i = static_cast<std::size_t>(step.row); i < siblings.size(); ++i)
        siblings[i]->row_ = static_cast<int>(i);
    structureHasChanged();
}

void Tree::clear() {
    if (roots_.empty()) return;
    structureWillChange(std::nullopt);
    selected_ = nullptr;
    byKey_.clear();
    roots_.clear();
    families_.clear();
    memory_.clear();
    structureHasChanged();
}

TreeNode* Tree::find(std::string_view key) const {
    return byKey_.find(key);
}

void Tree::select(TreeNode* node) {
    if (selected_ == node) return;
    selected_ = node;
    selectionChanged();
}

void Tree::setText(TreeNode& node, std::string_view text) {
    if (node.text() == text) return;
    write(node, node.key(), text, node.image());
    touched();
}
void Tree::setChecked(TreeNode& node, bool checked) {
    set(node.checked_, checked);
}
void Tree::setExpanded(TreeNode& node, bool expanded) {
    if (node.expanded_ == expanded) return;
    node.expanded_ = expanded;
    expansionChanged(node);
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

void Tree::structureWillChange(const std::optional<Step>& step) {
    if (updating_ > 0 && changedWhileUpdating_) return;
    changedWhileUpdating_ = updating_ > 0;
    step_ = updating_ > 0 ? std::nullopt : step;
    structureChanging();
}

void Tree::structureHasChanged() {
    if (updating_ > 0) return;
    structureChanged();
    step_.reset();
}

}  // namespace desk
