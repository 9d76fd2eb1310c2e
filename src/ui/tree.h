#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/blocks.h"
#include "ui/control.h"
#include "ui/key_index.h"
#include "ui/moving_keys.h"

namespace desk {

class TreeNode;
using TreeNodes = std::vector<TreeNode*>;

/// A node of a Tree. Its address stays as long as the node is in the tree, and so do its key and, until it is
/// given another, its text.
class TreeNode {
  public:
    std::string_view key() const { return {chars_, keySize_}; }
    std::string_view text() const { return {chars_ + keySize_, textSize_}; }
    std::string_view image() const { return {chars_ + keySize_ + textSize_, imageSize_}; }
    bool checked() const { return checked_; }
    bool expanded() const { return expanded_; }
    TreeNode* parent() const { return parent_; }
    int row() const { return row_; }  ///< position among its siblings
    const TreeNodes& children() const;

  private:
    friend class Tree;
    TreeNode() = default;

    const char* chars_ = nullptr;  ///< key, text and image, one behind the other
    TreeNode* parent_ = nullptr;
    TreeNodes* children_ = nullptr;  ///< null as long as there has been none
    std::uint32_t keySize_ = 0;
    std::uint32_t textSize_ = 0;
    std::uint32_t imageSize_ = 0;
    int row_ = 0;
    bool checked_ = false;
    bool expanded_ = false;
};

/// Nodes under nodes. The tree owns them and offers them to whoever shows it without a copy. Nodes and texts
/// lie in large blocks, which are given back when the tree is cleared: what is removed, or written anew,
/// until then only leaves its place unused.
class Tree : public Control {
  public:
    /// How the nodes look.
    enum class Style { plain, checkBoxes };

    Tree(Place place, std::string name, Style style = Style::plain);

    Style style() const { return style_; }
    const TreeNodes& roots() const { return roots_; }

    /// Adds a node behind its siblings: under `parent`, or a root when it is null. A key may be empty;
    /// otherwise it is held once in the tree: a second one fails with 35602.
    TreeNode& add(TreeNode* parent, std::string_view key, std::string_view text, std::string_view image = {});
    /// The same unless the key is held already: then nothing is added, and it gives null.
    TreeNode* addIfNew(TreeNode* parent, std::string_view key, std::string_view text,
                       std::string_view image = {});
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

    /// Asks that the node be in view; neither selects nor clicks it.
    void reveal(const TreeNode& node) { revealAsked(node); }

    std::string hint;  ///< what to do first, read where the tree has no nodes

    Signal<TreeNode&> nodeClicked;
    Signal<TreeNode&> nodeChecked;
    /// One node that comes or goes with all that is under it; its siblings move on or up.
    struct Step {
        enum class What { comes, goes };
        What what;
        TreeNode* parent;  ///< null for a root
        int row;
    };
    /// Between the two signals: the one step that is being taken; nothing when there may be many.
    const std::optional<Step>& step() const { return step_; }

    Signal<> structureChanging;  ///< nodes are about to come or go: pointers to nodes must be let go now
    Signal<> structureChanged;   ///< nodes have come or gone
    Signal<> selectionChanged;
    Signal<const TreeNode&> expansionChanged;
    Signal<const TreeNode&> revealAsked;

  private:
    TreeNodes& siblingsUnder(TreeNode* parent);
    void write(TreeNode& node, std::string_view key, std::string_view text, std::string_view image);
    void forget(TreeNode& node);
    void structureWillChange(const std::optional<Step>& step);
    void structureHasChanged();

    Style style_;
    MovingKeys movingKeys_ = MovingKeys::click;
    Blocks memory_;  ///< of all nodes and their texts
    TreeNodes roots_;
    std::deque<TreeNodes> families_;    ///< the children of each node that has had any
    mutable KeyIndex<TreeNode> byKey_;  ///< puts itself in order when it is asked
    TreeNode* selected_ = nullptr;
    std::optional<Step> step_;
    int updating_ = 0;
    bool changedWhileUpdating_ = false;
};

}  // namespace desk
