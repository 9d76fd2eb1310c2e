#include "analysis/classification.h"

#include <gtest/gtest.h>

#include "analysis/excel_export.h"
#include "support/test_program.h"

namespace desk {
namespace {

/// Office 01 with two teams and a lead of each.
class Classification : public testing::Test {
  protected:
    Classification() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.run({"Insert Into YZ_组表 (组代号,组名称) Values ('1','一组'),('2','二组')",
                     "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号) Values ('1','01'),('2','02')",
                     "Insert Into YZ_引驻客户信息 (登记编号,管理处代号,公司名称,企业性质,从事行业) Values "
                     "('1','01','一家名字很长很长的客户公司','外资','软件'),('2','01','乙','外资','软件')",
                     "Insert Into YZ_引驻客户分配 (登记编号,管理处代号,组代号) Values "
                     "('1','01','1'),('2','01','2')"});
        program.enter();
        program.app.screens.offer<Frm客户分类统计>(program.app);
    }
    void markEverything() {
        for (CheckBox* all : {&form().Check1, &form().Check2, &form().Check3}) all->setChecked(true);
    }
    Frm客户分类统计& form() { return program.app.screens.get<Frm客户分类统计>(); }

    TestProgram program;
};

TEST_F(Classification, TheTableIsMadeAnewMergedAndFitted) {
    const Grid& grid = form().MSFlexGrid1;
    form().Combo1.pick("01 东塔");
    markEverything();
    form().Command1.click();
    EXPECT_EQ(grid.merging(), Merge::restrictColumns);
    EXPECT_EQ(static_cast<int>(grid.merging()), 3);
    for (int column = 0; column < grid.columns(); ++column)
        EXPECT_EQ(grid.mergesColumn(column), column == 1) << column;
    EXPECT_EQ(grid.columnWidth(2), 13 * 150 + 90);
    form().List3.clearSelection();
    form().List3.click(form().List3.find("2 二组"));
    form().Command1.click();
    EXPECT_EQ(grid.rows(), 2);
    // The header is the longest text by now.
    EXPECT_EQ(grid.columnWidth(2), 4 * 150 + 90);
}

TEST_F(Classification, ItIsBusyWhileItAsksAndALineIsMarkedAsAWhole) {
    EXPECT_EQ(form().MSFlexGrid1.selection(), GridSelection::row);
    // Keys that wander over the agencies take none of them.
    EXPECT_EQ(form().List4.movingKeys(), MovingKeys::move);
    form().Combo1.pick("01 东塔");
    markEverything();
    std::vector<int> depths;
    program.fault.seen = [&](std::string_view) { depths.push_back(program.desktop.busyDepth); };
    form().Command1.click();
    program.fault.seen = [](std::string_view) {};
    EXPECT_EQ(depths, std::vector<int>{1});
    EXPECT_EQ(program.desktop.busyDepth, 0);
}

}  // namespace
}  // namespace desk
