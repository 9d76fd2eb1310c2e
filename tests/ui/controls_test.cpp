#include <gtest/gtest.h>

#include "support/failures.h"
#include "ui/batch.h"
#include "ui/grid.h"
#include "ui/screen.h"
#include "ui/tree.h"

namespace desk {
namespace {

struct Sheet : Screen {
    Sheet() : Screen("sheet", "表", WindowKind::child, 1500, 1500) {}
};

/// Counts how often a signal was raised.
struct Count {
    explicit Count(Signal<>& signal) {
        signal += [this] { ++times; };
    }
    int times = 0;
};

TEST(Signal, ASlotMayDestroyWhatItIsConnectedTo) {
    Signal<> signal;
    int heard = 0;
    Subscription second;
    signal += [&] { second.reset(); };
    second = signal.connect([&] { ++heard; });
    signal();
    EXPECT_EQ(heard, 0);
}

TEST(Tree, RefusesAKeyTwiceAndForgetsRemovedKeys) {
    Sheet sheet;
    Tree tree(sheet, "tree");
    TreeNode& root = tree.add(nullptr, "R", "来人");
    tree.add(&root, "RM1", "1");
    tree.add(&root, "", "无");
    tree.add(&root, "", "无");
    TreeNode& last = tree.add(&root, "RM2", "2");
    EXPECT_EQ(outcomeOf([&] { tree.add(nullptr, "RM1", "again"); }),
              (Outcome{35602, "集合中的关键字不唯一"}));
    tree.click(last);
    tree.remove(*tree.find("RM1"));
    EXPECT_EQ(tree.find("RM1"), nullptr);
    EXPECT_EQ(last.row(), 2);
    EXPECT_EQ(tree.selected(), &last);
    tree.remove(root);
    EXPECT_EQ(tree.selected(), nullptr);
    EXPECT_EQ(tree.find("RM2"), nullptr);
}

TEST(Grid, AFillOfAnySizeIsOneChange) {
    Sheet sheet;
    Grid grid(sheet, "grid", "<a|<b");
    Count structure(grid.structureChanged);
    Count cells(grid.cellsChanged);
    Count current(grid.currentChanged);
    {
        const Batch fill(grid);
        for (int i = 0; i < 100; ++i) grid.addRow({"x"});
        grid.setText(5, 1, "y");
        grid.setRow(100);
        grid.setRow(7);
    }
    EXPECT_EQ(structure.times, 1);
    EXPECT_EQ(cells.times, 0);
    EXPECT_EQ(current.times, 2) << "screens hear at once";
}

TEST(Grid, AHandlerThatFailsInABatchFailsWhereItWasRaised) {
    Sheet sheet;
    Grid grid(sheet, "grid", "<a|<b");
    Count structure(grid.structureChanged);
    grid.currentChanged += [] { throw RuntimeFailure(11, "除数为零"); };
    const auto fill = [&] {
        const Batch filling(grid);
        grid.addRow();
        grid.setRow(1);
    };
    EXPECT_THROW(fill(), RuntimeFailure);
    EXPECT_EQ(structure.times, 1) << "what was filled by then is shown";
}

}  // namespace
}  // namespace desk
