#include <gtest/gtest.h>

#include "support/failures.h"
#include "ui/batch.h"
#include "ui/canvas.h"
#include "ui/choices.h"
#include "ui/fields.h"
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

TEST(TextBox, TellsOfNewTextsOnlyAndOfThoseOfTheScreenToo) {
    Sheet sheet;
    TextBox box(sheet, "box");
    Count changes(box.changed);
    box.setText("a");
    box.setText("a");
    box.type("b");
    EXPECT_EQ(changes.times, 2);
    box.setLocked(true);
    box.type("c");
    box.setLocked(false);
    box.setEnabled(false);
    box.type("d");
    EXPECT_EQ(box.text(), "b");
}

TEST(ComboBox, SelectingByCodeAndByHandRaiseTheSameEvent) {
    Sheet sheet;
    ComboBox combo(sheet, "combo");
    combo.addItem("01 东塔");
    combo.addItem("02 西塔");
    Count choices(combo.selected);
    combo.setIndex(1);
    combo.setIndex(1);
    EXPECT_EQ(choices.times, 1);
    EXPECT_TRUE(combo.pick("02 西塔"));  // a person who picks the same line again asks again
    EXPECT_EQ(choices.times, 2);
    EXPECT_FALSE(combo.pick("03"));
    EXPECT_THROW(combo.setIndex(2), RuntimeFailure);
    combo.clear();
    EXPECT_EQ(combo.index(), -1);
    EXPECT_EQ(combo.text(), "");
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

TEST(Refill, LeavesTheNewLinesOrNoneAndTellsOfThemOnce) {
    Sheet sheet;
    Tree tree(sheet, "tree");
    Grid grid(sheet, "grid", "<a|<b");
    ListBox list(sheet, "list");
    Count inTree(tree.structureChanged);
    Count inGrid(grid.structureChanged);
    Count inList(list.itemsChanged);
    const auto refill = [](auto& control, const std::function<void()>& add, bool fails) {
        const Refill filling(control);
        add();
        if (fails) throw RuntimeFailure(failure::unspecified, "连接已中断");
    };
    for (const char* text : {"旧", "新"}) {
        refill(
            tree, [&] { tree.add(nullptr, "", text); }, false);
        refill(
            grid, [&] { grid.addRow({text}); }, false);
        refill(
            list, [&] { list.addItem(text); }, false);
    }
    EXPECT_EQ(tree.roots().front()->text(), "新");
    EXPECT_EQ(grid.text(1, 0), "新");
    EXPECT_EQ(list.items().front().text, "新");
    EXPECT_THROW(refill(
                     tree, [&] { tree.add(nullptr, "", "半"); }, true),
                 RuntimeFailure);
    EXPECT_THROW(refill(
                     grid, [&] { grid.addRow({"半"}); }, true),
                 RuntimeFailure);
    EXPECT_THROW(refill(
                     list, [&] { list.addItem("半"); }, true),
                 RuntimeFailure);
    EXPECT_TRUE(tree.roots().empty());
    EXPECT_EQ(grid.rows(), grid.fixedRows());
    EXPECT_EQ(list.count(), 0);
    for (const Count* each : {&inTree, &inGrid, &inList}) EXPECT_EQ(each->times, 3);
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

TEST(Canvas, DrawsInTwipsAtTheResolutionOfTheScreen) {
    Sheet sheet;
    Canvas canvas(sheet, "canvas");
    canvas.resize(1500, 750, 2.0 / 15);
    EXPECT_EQ(canvas.picture().width, 200);
    canvas.line(150, 75, 1350, 75, rgb(10, 20, 30));
    EXPECT_EQ(canvas.point(750, 75), rgb(10, 20, 30));
    EXPECT_EQ(canvas.point(750, 90), windowColour);
    EXPECT_EQ(canvas.point(1500, 75), -1);
}

}  // namespace
}  // namespace desk
