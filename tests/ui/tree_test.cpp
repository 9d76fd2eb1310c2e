#include <gtest/gtest.h>

#include <map>
#include <random>

#include "ui/batch.h"
#include "ui/screen.h"
#include "ui/tree.h"

namespace desk {
namespace {

struct Wood : Screen {
    Wood() : Screen("wood", "", WindowKind::child, 1500, 1500) {}
    Tree tree{*this, "tree"};
};

bool stands(const TreeNodes& nodes, const TreeNode* parent) {
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (nodes[i]->row() != static_cast<int>(i) || nodes[i]->parent() != parent ||
            !stands(nodes[i]->children(), nodes[i]))
            return false;
    return true;
}

/// Keys in order and out of it, many alike, nodes that go with what is under them, and refills.
TEST(TreeStore, HoldsWhatWasPutInAndNothingElse) {
    Wood wood;
    Tree& tree = wood.tree;
    std::map<std::string, std::string> texts;  ///< of the nodes that should be there, by key
    std::mt19937 random(20110305);
    const std::function<void(const TreeNode&)> expectGone = [&](const TreeNode& node) {
        for (const TreeNode* child : node.children()) expectGone(*child);
        texts.erase(std::string(node.key()));
    };
    int ascending = 0;
    for (int i = 0; i < 20000; ++i) {
        const auto key = "D" + std::to_string(random() % 3 != 0 ? 100000 + ++ascending : random() % 2000);
        TreeNode* const known = tree.find(key);
        ASSERT_EQ(known != nullptr, texts.contains(key)) << key;
        if (known == nullptr) {
            TreeNode* parent =
                texts.empty() || random() % 2 == 0
                    ? nullptr
                    : tree.find(std::next(texts.begin(), random() % std::min<std::size_t>(texts.size(), 50))
                                    ->first);
            const std::string text(random() % 60, static_cast<char>('a' + random() % 26));
            tree.add(parent, key, text, "image");
            texts[key] = text;
        } else if (random() % 4 == 0) {
            tree.setText(*known, texts[key] = "另一个" + key);
        } else if (random() % 2 == 0) {
            expectGone(*known);
            tree.remove(*known);
        } else {
            EXPECT_EQ(tree.addIfNew(nullptr, key, "x"), nullptr);
        }
        if (i % 7000 == 6999) {
            tree.clear();
            texts.clear();
        }
    }
    EXPECT_TRUE(stands(tree.roots(), nullptr));
    EXPECT_GT(texts.size(), 1000U);
    for (const auto& [key, text] : texts) {
        const TreeNode* node = tree.find(key);
        ASSERT_NE(node, nullptr) << key;
        EXPECT_EQ(node->key(), key);
        EXPECT_EQ(node->text(), text);
        EXPECT_EQ(node->image(), node->text().starts_with("另") ? node->image() : "image");
    }
}

TEST(TreeStore, TakesTextsOfAnyLength) {
    Wood wood;
    const std::string text(1000000, 'x');
    TreeNode& node = wood.tree.add(nullptr, "", text);
    wood.tree.add(&node, "", "");
    EXPECT_EQ(node.text(), text);
    EXPECT_EQ(node.children().front()->text(), "");
}

TEST(TreeStore, TellsOfOneNodeThatComesOrGoesAndOfABatch) {
    Wood wood;
    Tree& tree = wood.tree;
    std::string heard;
    const auto note = [&](const char* when) {
        heard += when;
        if (const auto& step = tree.step())
            heard += (step->what == Tree::Step::What::comes ? "+" : "-") +
                     std::string(step->parent != nullptr ? step->parent->key() : "") +
                     std::to_string(step->row);
        heard += ' ';
    };
    tree.structureChanging += [&] { note("before"); };
    tree.structureChanged += [&] { note("after"); };
    TreeNode& root = tree.add(nullptr, "R", "");
    tree.add(&root, "1", "");
    tree.add(&root, "2", "");
    tree.remove(*tree.find("1"));
    EXPECT_EQ(heard, "before+0 after+0 before+R0 after+R0 before+R1 after+R1 before-R0 after-R0 ");
    heard.clear();
    {
        const Batch fill(tree);
        tree.remove(*tree.find("2"));
        tree.add(nullptr, "S", "");
    }
    tree.clear();
    EXPECT_EQ(heard, "before after before after ");
}

}  // namespace
}  // namespace desk
