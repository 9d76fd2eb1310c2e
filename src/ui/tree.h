#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ui/control.h"
#include "ui/moving_keys.h"

namespace desk {

/// A node of a Tree. Its address stays as long as the node is in the tree.
class TreeNode {
  public:
    const std::string& key() const { return key_; }
    const std::string& text() const { return text_; }
    bool checked() const { return checked_; }
    bool expanded() const { return expanded_; }
    TreeNode* parent() const { return parent_; }
    int row() const { return row_; }  ///< position among its siblings
    const std::vector<std::unique_ptr<TreeNode>>& children() const { return children_; }

  private:
    friend class Tree;
    std::string key_;
    std::string text_;
    std::string image_;
    TreeNode* parent_ = nullptr;
    std::vector<std::unique_ptr<TreeNode>> children_;
    int row_ = 0;
    bool checked_ = false;
    bool expanded_ = false;

  public:
    const std::string& image() const { return image_; }
};

/// Nodes under nodes. The tree owns them and offers them to whoever shows it without a copy.
class Tree : public Control {
  public:
    /// How the nodes look.
    enum class Style { plain, checkBoxes };

    Tree(Place place, std::string name, Style style = Style::plain);

    Style style() const { return style_; }
    const std::vector<std::unique_ptr<TreeNode>>& roots() const { return roots_; }

    /// Adds a node behind its siblings: under `parent`, or a root when it is null. A key may be empty;
    /// otherwise it is held once in the tree: a second one fails with 35602.
    TreeNode& add(TreeNode* parent, std::string_view key, std::string_view text, std::string_view image = {});
    void remove(TreeNode& node);
    void clear();
    /// The node of that key, null when there is none.
    TreeNode* find(std::string_view key) const;

    TreeNode* selected() const { return selected_; }
    /// Without an event: clicks alone raise `nodeClicked`.
    void select(TreeNode* node);
    void setText(TreeNode& node, std::string_view text);
    /// Without an event.
    void setChecked(TreeNode& node, bool checked);
    void setExpanded(TreeNode& node, bool expanded);

    MovingKeys movingKeys() const { return movingKeys_; }
    void setMovingKeys(MovingKeys keys) { movingKeys_ = keys; }

    /// What people do; nothing while disabled or hidden.
    void click(TreeNode& node);
    /// The keys have gone to the node: a click, or the selection alone.
    void moveTo(TreeNode& node);
    void tick(TreeNode& node, bool checked);

    /// Between the two, observers are not told; afterwards once.
    void beginUpdate() { ++updating_; }
    void endUpdate();

    Signal<TreeNode&> nodeClicked;
    Signal<TreeNode&> nodeChecked;
    Signal<> structureChanging;  ///< nodes are about to come or go: pointers to nodes must be let go now
    Signal<> structureChanged;   ///< nodes have come or gone
    Signal<> selectionChanged;

  private:
    void forget(const TreeNode& node);
    void structureWillChange();
    void structureHasChanged();

    Style style_;
    MovingKeys movingKeys_ = MovingKeys::click;
    std::vector<std::unique_ptr<TreeNode>> roots_;
    std::unordered_map<std::string_view, TreeNode*> byKey_;  ///< keyed by the nodes' own text
    TreeNode* selected_ = nullptr;
    int updating_ = 0;
    bool changedWhileUpdating_ = false;
};

}  // namespace desk
