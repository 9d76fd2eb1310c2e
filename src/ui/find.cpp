#include "ui/find.h"

namespace desk {

namespace {

/// Small letters, and of the signs that have two widths the narrow one.
void fold(std::string_view text, std::string& folded) {
    folded.clear();
    const auto lower = [](unsigned char c) {
        return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto following = [&](std::size_t n) { return static_cast<unsigned char>(text[i + n]); };
        if (byte < 0x80) {
            folded.push_back(lower(byte));
        } else if (byte == 0xEF && i + 2 < text.size() && (following(1) == 0xBC || following(1) == 0xBD)) {
            // U+FF01 to U+FF5E are the wide twins of '!' to '~'; U+FF60 and above are others.
            const unsigned wide = (following(1) == 0xBC ? 0U : 0x40U) + (following(2) & 0x3FU);
            if (wide >= 0x01 && wide <= 0x5E)
                folded.push_back(lower(static_cast<unsigned char>(wide + 0x20)));
            else
                folded.append(text.substr(i, 3));
            i += 2;
        } else if (text.substr(i, 3) == "　") {
            folded.push_back(' ');
            i += 2;
        } else {
            folded.push_back(text[i]);
        }
    }
}

const TreeNode& deepestLast(const TreeNode& node) {
    const TreeNode* at = &node;
    while (!at->children().empty()) at = at->children().back();
    return *at;
}

/// Walks through the nodes of a tree as they are read, around its ends.
class Walk {
  public:
    explicit Walk(const Tree& tree) : roots_(tree.roots()) {}

    TreeNode* first() const { return roots_.front(); }
    TreeNode* last() const { return const_cast<TreeNode*>(&deepestLast(*roots_.back())); }

    TreeNode* after(const TreeNode& node) const {
        if (!node.children().empty()) return node.children().front();
        for (const TreeNode* at = &node; at != nullptr; at = at->parent()) {
            const auto& siblings = siblingsOf(*at);
            const auto next = static_cast<std::size_t>(at->row()) + 1;
            if (next < siblings.size()) return siblings[next];
        }
        return first();
    }

    TreeNode* before(const TreeNode& node) const {
        if (node.row() > 0)
            return const_cast<TreeNode*>(
                &deepestLast(*siblingsOf(node)[static_cast<std::size_t>(node.row()) - 1]));
        return node.parent() != nullptr ? node.parent() : last();
    }

  private:
    const TreeNodes& siblingsOf(const TreeNode& node) const {
        return node.parent() != nullptr ? node.parent()->children() : roots_;
    }

    const TreeNodes& roots_;
};

template <class Holds>
TreeNode* firstThat(const Tree& tree, const TreeNode* from, Towards towards, const Holds& holds) {
    if (tree.roots().empty()) return nullptr;
    const Walk walk(tree);
    const auto step = [&](const TreeNode& node) {
        return towards == Towards::next ? walk.after(node) : walk.before(node);
    };
    TreeNode* const begin = from != nullptr            ? step(*from)
                            : towards == Towards::next ? walk.first()
                                                       : walk.last();
    TreeNode* at = begin;
    do {
        if (holds(*at)) return at;
        at = step(*at);
    } while (at != begin);
    return nullptr;
}

}  // namespace

Wanted::Wanted(std::string_view text) {
    fold(text, folded_);
}

bool Wanted::isIn(std::string_view text) {
    fold(text, read_);
    return read_.find(folded_) != std::string::npos;
}

bool Wanted::beginsAWordOf(std::string_view text) {
    fold(text, read_);
    for (auto at = read_.find(folded_); at != std::string::npos; at = read_.find(folded_, at + 1))
        if (at == 0 || read_[at - 1] == ' ' || read_[at - 1] == ')') return true;
    return false;
}

TreeNode* findNode(const Tree& tree, Wanted& wanted, const TreeNode* from, Towards towards) {
    return firstThat(tree, from, towards, [&](const TreeNode& node) { return wanted.isIn(node.text()); });
}

TreeNode* findBeginning(const Tree& tree, Wanted& wanted, const TreeNode* from) {
    return firstThat(tree, from, Towards::next,
                     [&](const TreeNode& node) { return wanted.beginsAWordOf(node.text()); });
}

std::optional<GridPlace> findCell(const Grid& grid, Wanted& wanted, std::optional<GridPlace> from,
                                  Towards towards) {
    const int columns = grid.columns();
    const int cells = (grid.rows() - grid.fixedRows()) * columns;
    if (cells <= 0) return std::nullopt;
    const int step = towards == Towards::next ? 1 : cells - 1;
    int at = towards == Towards::next ? 0 : cells - 1;
    if (from) at = ((from->row - grid.fixedRows()) * columns + from->column + step) % cells;
    for (int left = cells; left > 0; --left, at = (at + step) % cells) {
        const GridPlace place{at / columns + grid.fixedRows(), at % columns};
        if (grid.columnWidth(place.column) > 0 && wanted.isIn(grid.text(place.row, place.column)))
            return place;
    }
    return std::nullopt;
}

}  // namespace desk
