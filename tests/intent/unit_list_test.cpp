#include "intent/unit_list.h"

#include <gtest/gtest.h>

#include "ui/screen.h"

namespace desk {

namespace {

struct UnitList : testing::Test {
    Screen screen{"屏", "", WindowKind::child, 0, 0};
    租赁单元列表 units{screen, "单元列表"};

    std::string row(int at) const {
        std::string all;
        for (int column = 0; column < units.columns(); ++column) all += units.text(at, column) + "|";
        return all;
    }
};

TEST_F(UnitList, GathersUnitsBehindTheNameOfTheirSection) {
    EXPECT_EQ(units.单元文本(), "");
    EXPECT_EQ(units.总面积(), 0);
    units.append({"东塔", "101", 80.5, 7});
    units.append({"东塔", "102", 100, 8});
    units.append({"西塔", "9", 0.25, 9});
    units.append({"东塔", "103", 1, 10});
    EXPECT_EQ(row(1), "1|东塔|101|80.5|7||");
    EXPECT_EQ(row(3), "3|西塔|9|0.25|9||");
    EXPECT_EQ(units.单元文本(), "[东塔]101，102，[西塔]9，[东塔]103");
    EXPECT_DOUBLE_EQ(units.总面积(), 181.75);
}

TEST_F(UnitList, TheChoiceOfNothingIsARowToo) {
    units.append({});
    EXPECT_EQ(row(1), "1|||0|0||");
    EXPECT_EQ(units.单元文本(), "");
}

TEST_F(UnitList, KeepsSavedRowsAndNumbersThemAnew) {
    for (int unit = 1; unit <= 4; ++unit) units.append({"东塔", std::to_string(unit), 10, unit});
    units.setText(2, 租赁单元列表::记录ID, "61");
    units.setText(4, 租赁单元列表::记录ID, "62");
    EXPECT_EQ(units.unsaved(), (std::vector<int>{1, 3}));
    units.removeUnsaved();
    ASSERT_EQ(units.rows(), 3);
    EXPECT_EQ(row(1), "1|东塔|2|10|2|61|");
    EXPECT_EQ(row(2), "2|东塔|4|10|4|62|");
    units.remove(1);
    ASSERT_EQ(units.rows(), 2);
    EXPECT_EQ(row(1), "1|东塔|4|10|4|62|");
}

}  // namespace

}  // namespace desk
