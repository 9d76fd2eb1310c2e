#include "intent/unit_map.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "db/statement.h"
#include "support/test_program.h"

namespace desk {

namespace {

/// What transcripts do not show of the map: seven sections, the first with a kept unit and one of 60 that is
/// let, of 190 that can be.
class UnitMap : public testing::Test {
  protected:
    UnitMap() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        for (int id = 1; id <= 7; ++id) {
            program.db().execute(sql(
                "Insert Into 楼表 (L_ID,楼编号,地址1,管理处,开始日期) Values ({},'{}','楼','01','2001-1-1')",
                id, id));
            program.db().execute(sql("Insert Into 楼域范围设置 (工号,L_ID) Values ('E01',{})", id));
        }
        program.run(
            {"Insert Into 室表 (S_ID,L_ID,层次,室,建筑面积,开始日期) Values "
             "(1,1,'1','甲',60,'2001-1-1'),(2,1,'1','乙',130,'2001-1-1'),(3,1,'1','丙',70,'2001-1-1')",
             "Insert Into 单元出租状态 (单元ID,状态,设置日期) Values (3,'自用','2010-1-1')",
             "Insert Into 客户信息 (客户编号,客户名称) Values ('K','丁')",
             "Insert Into 合同信息 (客户编号) Values ('K')",
             "Insert Into 合同单元信息 (单元ID,合同ID,起始日期) Values (2,1,'2011-1-1')"});
        program.enter();
        program.app.screens.offer<Frm房源一览表>(program.app);
        program.app.screens.open(Frm房源一览表::screenName);
        screen().区域.pick("01 东塔");
    }
    Frm房源一览表& screen() { return program.app.screens.get<Frm房源一览表>(); }
    double topOf(int tile) { return screen().统计.块[tile].top(); }

    TestProgram program;
};

TEST_F(UnitMap, SetsItsBandsOffFromItsUnits) {
    const Grid& map = screen().地图;
    EXPECT_TRUE(map.mergesRow(0));
    EXPECT_TRUE(map.cellBold(0, 2));
    EXPECT_EQ(map.cellAlignment(0, 2), Align::left);
    EXPECT_FALSE(map.mergesRow(1));
    EXPECT_EQ(map.cellAlignment(1, 2), Align::centre);
    EXPECT_EQ(map.rowData(1), 1);
    // An office that cannot be read must not look like the one before.
    program.fault = {.in = 1, .number = failure::unspecified};
    screen().区域.pick("02 西塔");
    EXPECT_EQ(map.rows(), 0);
}

TEST_F(UnitMap, ThePiesHaveWhatIsLetBehindWhatIsNot) {
    screen().统计信息.click();
    Canvas& pie = screen().统计.块[0].饼图;
    pie.resize(2700, 1800, 1.0 / 15);
    // 130 of 190 are let, that is 68 parts of 100, behind the 32 that are not.
    EXPECT_EQ(pie.point(400, 800), rgb(253, 205, 140));
    EXPECT_EQ(pie.point(1700, 500), rgb(182, 250, 192));
    EXPECT_EQ(pie.point(1300, 1400), rgb(182, 250, 192));
    EXPECT_EQ(pie.point(1300, 880 + 640 + 100), rgb(122, 190, 132));
    EXPECT_EQ(pie.point(1300, 880 + 640 + 260), windowColour);
}

TEST_F(UnitMap, ScrollsTheTilesOfManySections) {
    constexpr double step = 统计块::height + 60;
    screen().统计信息.click();
    ScrollBar& bar = screen().统计.滚动条;
    EXPECT_TRUE(bar.visible());
    EXPECT_EQ(topOf(3), 3 * step);
    bar.scrollTo(9);
    EXPECT_EQ(bar.position(), 2);
    EXPECT_EQ(topOf(3), step);
    screen().统计信息.click();
    screen().统计信息.click();
    EXPECT_EQ(topOf(0), 0);
}

}  // namespace

}  // namespace desk
