#include "session/numbered_nodes.h"

#include "base/text.h"

namespace desk {

namespace {

/// Stands in a key between a number that another node has already and what tells the two apart.
constexpr char 重号 = '\x1f';

}  // namespace

void addNumbered(Tree& tree, TreeNode* parent, std::string_view prefix, std::string_view number,
                 std::string_view text, std::string_view image) {
    std::string key(prefix);
    key += number;
    if (tree.addIfNew(parent, key, text, image) != nullptr) return;
    key += 重号;
    key += std::to_string((parent != nullptr ? parent->children() : tree.roots()).size());
    tree.add(parent, key, text, image);
}

std::string numberOf(const TreeNode& node, std::string_view prefix) {
    const std::string_view key = node.key();
    if (!key.starts_with(prefix)) return {};
    return std::string(without(key.substr(0, key.find(重号)), prefix.size()));
}

}  // namespace desk
