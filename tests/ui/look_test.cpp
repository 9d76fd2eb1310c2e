#include <gtest/gtest.h>

#include "ui/column_shares.h"
#include "ui/find.h"
#include "ui/screen.h"

namespace desk {
namespace {

struct Sheet : Screen {
    Sheet() : Screen("sheet", "表", WindowKind::child, 1500, 1500) {}

    Tree tree{*this, "tree"};
    Grid grid{*this, "grid", "<序|<名称   |<编号|>数量"};
};

TEST(Find, CaseAndWidthDoNotCount) {
    EXPECT_TRUE(Wanted("abc－1").isIn("公司ＡＢc-1"));
    EXPECT_TRUE(Wanted("王　先生").isIn("王 先生"));
    EXPECT_FALSE(Wanted("abd").isIn("abc"));
    // Signs that only look like wide letters keep their meaning.
    EXPECT_FALSE(Wanted("a").isIn("｡！。"));
    EXPECT_TRUE(Wanted("").isEmpty());
}

TEST(Find, NodesComeInReadingOrderAroundTheEndAlsoOutOfFoldedBranches) {
    Sheet sheet;
    TreeNode& first = sheet.tree.add(nullptr, "1", "东塔");
    TreeNode& below = sheet.tree.add(&first, "11", "盛远国际");
    TreeNode& second = sheet.tree.add(nullptr, "2", "西塔");
    TreeNode& last = sheet.tree.add(&second, "21", "盛远贸易");
    Wanted company("盛远");
    EXPECT_EQ(findNode(sheet.tree, company, nullptr, Towards::next), &below);
    EXPECT_EQ(findNode(sheet.tree, company, &below, Towards::next), &last);
    EXPECT_EQ(findNode(sheet.tree, company, &last, Towards::next), &below);
    EXPECT_EQ(findNode(sheet.tree, company, &below, Towards::previous), &last);
    EXPECT_EQ(findNode(sheet.tree, company, nullptr, Towards::previous), &last);
    Wanted tower("塔");
    EXPECT_EQ(findNode(sheet.tree, tower, &last, Towards::previous), &second);
    EXPECT_EQ(findNode(sheet.tree, tower, &below, Towards::previous), &first);
    Wanted only("国际");
    EXPECT_EQ(findNode(sheet.tree, only, &below, Towards::next), &below);
    Wanted nobody("无");
    EXPECT_EQ(findNode(sheet.tree, nobody, &below, Towards::next), nullptr);
    sheet.tree.clear();
    EXPECT_EQ(findNode(sheet.tree, only, nullptr, Towards::next), nullptr);
}

TEST(Find, CellsAreReadRowByRowWithoutHeaderAndHiddenColumns) {
    Sheet sheet;
    Grid& grid = sheet.grid;
    grid.addRow({"1", "名称甲", "编号", "7"});
    grid.addRow({"2", "乙", "名称甲", "17"});
    grid.setColumnWidth(2, 0);
    Wanted name("名称"), seven("7");
    EXPECT_EQ(findCell(grid, name, {}, Towards::next), (GridPlace{1, 1}));
    EXPECT_EQ(findCell(grid, name, GridPlace{1, 1}, Towards::next), (GridPlace{1, 1}));
    EXPECT_EQ(findCell(grid, seven, GridPlace{1, 3}, Towards::next), (GridPlace{2, 3}));
    EXPECT_EQ(findCell(grid, seven, GridPlace{2, 3}, Towards::next), (GridPlace{1, 3}));
    EXPECT_EQ(findCell(grid, seven, {}, Towards::previous), (GridPlace{2, 3}));
    EXPECT_EQ(findCell(grid, seven, GridPlace{2, 3}, Towards::previous), (GridPlace{1, 3}));
    grid.setRows(1);
    EXPECT_EQ(findCell(grid, seven, {}, Towards::next), std::nullopt);
}

TEST(ColumnShares, SpareWidthGoesToCutTextsFirstAndLosesNothing) {
    const std::vector<ColumnWish> wishes = {
        {30, 30, false}, {100, 160, true}, {50, 50, true}, {40, 60, false}};
    EXPECT_EQ(columnShares(wishes, 200), (std::vector<int>{30, 100, 50, 40}));
    EXPECT_EQ(columnShares(wishes, 260), (std::vector<int>{30, 130, 50, 50}));
    EXPECT_EQ(columnShares(wishes, 300), (std::vector<int>{30, 160, 50, 60}));
    EXPECT_EQ(columnShares(wishes, 405), (std::vector<int>{30, 240, 75, 60}));
    EXPECT_EQ(columnShares({{30, 30, false}}, 100), std::vector<int>{30});
    // A little less is taken from texts that can spare it, but not where some column stays out of sight.
    const std::vector<ColumnWish> roomy = {{30, 20, false}, {100, 60, true}, {50, 60, true}, {80, 70, true}};
    EXPECT_EQ(columnShares(roomy, 230), (std::vector<int>{30, 76, 50, 74}));
    EXPECT_EQ(columnShares(roomy, 210), (std::vector<int>{30, 60, 50, 70}));
    EXPECT_EQ(columnShares(roomy, 209), (std::vector<int>{30, 100, 50, 80}));
}

}  // namespace
}  // namespace desk
