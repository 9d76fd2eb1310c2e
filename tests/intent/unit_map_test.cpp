#include "intent/unit_map.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/text.h"
#include "db/statement.h"
#include "intent/letter.h"
#include "support/transcripts_of_room.h"

namespace desk {

namespace {

/// Two sections of 东塔: 一号楼 with a unit in each state, 二号楼 with three free ones, in rows of four
/// cells.
class UnitMap : public testing::Test {
  protected:
    UnitMap() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        offerScreens<Frm房源一览表, Frm意向书信息>(program);
        addSection(1, "9", "一");
        addSection(2, "10", "二");
        program.run(
            {"Insert Into 室表 (S_ID,L_ID,层次,室,建筑面积,装修日期,开始日期) Values "
             "(1,101,'1','101',100.5,NULL,'2001-1-1'),(2,101,'1','102',50,NULL,'2001-1-1'),"
             "(3,101,'1','103',60,'2011-3-1','2001-1-1'),(4,101,'1','104',70,NULL,'2001-1-1'),"
             "(5,101,'2','201',80,NULL,'2001-1-1'),(6,102,'1','A',30,NULL,'2001-1-1'),"
             "(7,102,'1','B',31.256,NULL,'2001-1-1'),(8,102,'1','C',32,NULL,'2001-1-1')"});
        let(2, "K2", "甲公司");
        letOut(4, "自用");
        letOut(5, "可出租");
        program.enter();
    }

    /// A section that the session may see.
    void addSection(int id, const std::string& number, const char* name) {
        program.db().execute(
            sql("Insert Into 楼表 (L_ID,楼编号,地址1,字1,地址2,管理处,开始日期) Values "
                "({},'{}','{}','号','楼','01','2001-1-1')",
                100 + id, number, name));
        program.db().execute(sql("Insert Into 楼域范围设置 (工号,L_ID) Values ('E01',{})", 100 + id));
    }
    void let(int unit, const char* number, const char* tenant, const char* from = "2011-1-1",
             const char* to = "2012-1-1") {
        auto& db = program.db();
        db.execute(sql("Insert Into 客户信息 (客户编号,客户名称) Values ('{}','{}')", number, tenant));
        db.execute(sql("Insert Into 合同信息 (客户编号) Values ('{}')", number));
        db.execute(sql("Insert Into 合同单元信息 (单元ID,合同ID,起始日期,终止日期) Values ({},{},'{}','{}')",
                       unit, ++contracts_, from, to));
    }
    void letOut(int unit, const char* state) {
        program.db().execute(
            sql("Insert Into 单元出租状态 (单元ID,状态,设置日期) Values ({},'{}','2010-1-1')", unit, state));
    }

    /// Opens the map of 东塔 in that many columns.
    Frm房源一览表& opened(int columns = 4) {
        auto& screen = program.app.screens.get<Frm房源一览表>();
        program.app.screens.open(Frm房源一览表::screenName);
        screen.地图.resize(columns * 700 + 200, 3000);
        screen.区域.pick("01 东塔");
        return screen;
    }
    Frm房源一览表& picking() {
        auto& screen = opened();
        screen.选择房源.setVisible(true);
        screen.房源选择确定.setVisible(true);
        screen.选择房源.click();
        return screen;
    }

    /// The rows of the map: a band in brackets, of the others each cell with a sign for its colour.
    static std::vector<std::string> drawn(const Frm房源一览表& screen) {
        const Grid& map = screen.地图;
        std::vector<std::string> lines;
        for (int row = 0; row < map.rows(); ++row) {
            if (map.cellColour(row, 0) == rgb(186, 189, 174)) {
                lines.push_back("[" + map.text(row, 0) + "]");
                continue;
            }
            std::string& line = lines.emplace_back(std::to_string(map.rowData(row)) + ":");
            for (int column = 0; column < map.columns(); ++column)
                line += " " + map.text(row, column) + signOf(*map.cellColour(row, column));
        }
        return lines;
    }
    static char signOf(Colour colour) {
        if (colour == rgb(182, 250, 192)) return '+';
        if (colour == rgb(253, 205, 140)) return '$';
        if (colour == rgb(249, 252, 124)) return '!';
        return colour == rgb(255, 255, 255) ? '.' : '?';
    }
    static std::string infoOf(const Frm房源一览表& screen) {
        const 房源信息& info = screen.信息;
        if (!info.面板.isOpen()) return "closed";
        return join({info.建筑面积.caption(), info.客户.caption(), info.客户编号.caption(),
                     info.层次.caption(), info.装修.caption(), info.状态.caption()},
                    "|");
    }
    static std::vector<std::string> marked(const Frm房源一览表& screen) {
        std::vector<std::string> texts;
        const auto& markers = screen.选中.标记;
        for (int i = 0; i < markers.count(); ++i)
            texts.push_back(markers[i].name() + " " + markers[i].text() + " at " + markers[i].tag);
        return texts;
    }
    using Lines = std::vector<std::string>;

    TestProgram program;

  private:
    int contracts_ = 0;
};

TEST_F(UnitMap, DrawsABandForEachSectionAndACellForEachUnit) {
    auto& screen = opened();
    EXPECT_EQ(drawn(screen), (Lines{"[一号楼]", "101: 101+ 102$ 103! 104.", "101: 201+ . . .", "[二号楼]",
                                    "102: A+ B+ C+ ."}));
    EXPECT_EQ(screen.地图.rowHeight(0), 300);
    EXPECT_EQ(screen.地图.rowHeight(1), 650);
    EXPECT_EQ(screen.地图.columnWidth(3), 700);
    EXPECT_TRUE(screen.地图.mergesRow(0));
    EXPECT_FALSE(screen.地图.mergesRow(1));
    EXPECT_TRUE(screen.地图.cellBold(3, 2));
    EXPECT_EQ(screen.地图.cellAlignment(3, 2), Align::left);
    EXPECT_EQ(screen.地图.cellAlignment(2, 3), Align::centre);
    EXPECT_EQ(screen.地图.text(3, 3), "二号楼");
    EXPECT_EQ(screen.状态栏.panel(1), "招商部");
    EXPECT_EQ(screen.状态栏.panel(2), program.app.session.登录姓名);
    EXPECT_TRUE(program.desktop.messages.empty());
}

TEST_F(UnitMap, FitsItsColumnsToTheWidthAndDrawsAgain) {
    auto& screen = opened(6);
    EXPECT_EQ(drawn(screen)[1], "101: 101+ 102$ 103! 104. 201+ .");
    program.run({"Update 单元出租状态 Set 状态='自用' Where 单元ID=5"});
    screen.地图.resize(3 * 700 + 200 + 699, 3000);
    EXPECT_EQ(drawn(screen),
              (Lines{"[一号楼]", "101: 101+ 102$ 103!", "101: 104. 201. .", "[二号楼]", "102: A+ B+ C+"}));
    screen.地图.resize(100, 3000);
    EXPECT_EQ(screen.地图.columns(), 1);
}

TEST_F(UnitMap, CountsADayFromItsStartUpToItsEnd) {
    program.run({"Update 合同单元信息 Set 终止日期='2011-3-5' Where 单元ID=2",
                 "Update 单元出租状态 Set 设置日期='2011-3-6' Where 单元ID=4",
                 "Update 室表 Set 结束日期='2011-3-5' Where S_ID=6",
                 "Update 室表 Set 开始日期='2011-3-6' Where S_ID=7",
                 "Update 室表 Set 开始日期='2011-3-5',结束日期='2011-3-6' Where S_ID=8"});
    let(1, "K1", "乙", "2011-3-5 18:00:00", "2011-3-6");
    EXPECT_EQ(drawn(opened()), (Lines{"[一号楼]", "101: 101$ 102+ 103! 104+", "101: 201+ . . .", "[二号楼]",
                                      "102: C+ . . ."}));
    program.run({"Update 楼表 Set 终止日期='2011-3-5' Where L_ID=102"});
    auto& screen = program.app.screens.get<Frm房源一览表>();
    screen.区域.pick("01 东塔");
    EXPECT_EQ(drawn(screen).size(), 3U);
}

TEST_F(UnitMap, ShowsSectionsWithoutUnitsAndUnitsOfTwoTenants) {
    addSection(3, "11", "三");
    letOut(6, "自用");
    let(6, "K6", "丙");
    let(6, "K7", "丁");
    EXPECT_EQ(drawn(opened()), (Lines{"[一号楼]", "101: 101+ 102$ 103! 104.", "101: 201+ . . .", "[二号楼]",
                                      "102: A$ A$ B+ C+", "[三号楼]", "103: . . . ."}));
}

TEST_F(UnitMap, TellsWhoMaySeeNothing) {
    program.run({"Delete From 楼域范围设置"});
    auto& screen = opened();
    ASSERT_EQ(program.desktop.messages.size(), 1U);
    const Message& box = program.desktop.messages.front();
    EXPECT_EQ(box.text, "尚未设置对应的楼域范围，请设置楼域范围！");
    EXPECT_EQ(box.icon, Icon::information);
    EXPECT_EQ(screen.地图.rows(), 0);
    EXPECT_FALSE(screen.统计信息.enabled());
    EXPECT_FALSE(screen.选择房源.enabled());
    screen.地图.resize(9000, 3000);
    EXPECT_EQ(program.desktop.messages.size(), 1U);
    screen.关闭.click();
    EXPECT_EQ(program.app.screens.loaded(Frm房源一览表::screenName), nullptr);
}

TEST_F(UnitMap, WhatCannotBeReadIsToldAndHasNoStatistics) {
    program.run({"Update 室表 Set 建筑面积=NULL Where S_ID=4"});
    auto& screen = opened();
    EXPECT_EQ(program.desktop.takeMessage(), "错误，错误为：13 类型不匹配");
    EXPECT_EQ(drawn(screen), (Lines{"[一号楼]", "101: 101+ 102$ 103! 104."}));
    EXPECT_FALSE(screen.统计信息.enabled());
    program.run({"Update 室表 Set 建筑面积=70 Where S_ID=4"});
    screen.区域.pick("01 东塔");
    program.fault = {.in = 1, .number = failure::unspecified};
    screen.区域.pick("02 西塔");
    EXPECT_EQ(program.desktop.takeMessage().substr(0, 21), "错误，错误为：");
    screen.统计信息.click();
    EXPECT_EQ(screen.统计.块.count(), 0);
}

TEST_F(UnitMap, HighlightsOneUnitAndTellsOfIt) {
    auto& screen = opened();
    const 房源标记& light = screen.突出显示;
    screen.地图.click(0, 1);
    screen.地图.click(2, 2);
    EXPECT_FALSE(light.visible());
    screen.地图.click(1, 1);
    EXPECT_TRUE(light.visible());
    EXPECT_EQ(light.text(), "102");
    EXPECT_EQ(light.area(), (Area{700, 300, 700, 650}));
    EXPECT_EQ(light.tag, "5");
    EXPECT_EQ(infoOf(screen), "closed");
    screen.突出显示.click(MouseButton::left);
    EXPECT_EQ(infoOf(screen), "50|甲公司|【客户编号】  K2|1||单元已出租");
    EXPECT_EQ(screen.信息.面板.anchor(), &light);
    screen.地图.click(2, 0);
    EXPECT_EQ(infoOf(screen), "closed");
    EXPECT_EQ(light.area(), (Area{0, 950, 700, 650}));
    EXPECT_EQ(light.tag, "8");
    // The key that comes to the cell below the highlight means the highlight.
    screen.地图.click(2, 0);
    EXPECT_EQ(infoOf(screen), "80||【客户编号】  |2||单元可出租");
    screen.信息.关闭窗口.click();
    EXPECT_EQ(infoOf(screen), "closed");
    // Who starts to pick has no use for it.
    ASSERT_TRUE(light.visible());
    screen.选择房源.setVisible(true);
    screen.选择房源.click();
    EXPECT_FALSE(light.visible());
}

TEST_F(UnitMap, TellsTheStateOfEachUnit) {
    letOut(3, "可出租");
    let(7, "K9", "戊");
    program.run({"Update 室表 Set 装修日期='2011-2-1' Where S_ID=7"});
    auto& screen = opened();
    const auto told = [&](int row, int column) {
        screen.地图.click(row, column);
        screen.突出显示.click(MouseButton::other);
        return infoOf(screen);
    };
    EXPECT_EQ(drawn(screen)[4], "102: A+ B! C+ .");
    EXPECT_EQ(told(1, 2), "60||【客户编号】  |1|正在装修中|单元装修之中");
    EXPECT_EQ(told(1, 3), "70||【客户编号】  |1||单元不可出租");
    EXPECT_EQ(told(4, 1), "31.26|戊|【客户编号】  K9|1|正在装修中|单元已出租");
}

TEST_F(UnitMap, ScrollingHidesTheHighlightAndLeavesTheMarkers) {
    auto& screen = picking();
    screen.地图.click(2, 0);
    screen.选择房源.click();
    EXPECT_TRUE(marked(screen).empty());
    screen.地图.click(2, 0);
    ASSERT_TRUE(screen.突出显示.visible());
    screen.地图.scrollTo(600);
    EXPECT_FALSE(screen.突出显示.visible());
    screen.选择房源.click();
    screen.地图.click(2, 0);
    EXPECT_EQ(screen.选中.标记[0].area(), (Area{0, 350, 700, 650}));
    screen.地图.scrollTo(0);
    EXPECT_EQ(screen.选中.标记[0].area(), (Area{0, 350, 700, 650}));
}

TEST_F(UnitMap, PicksWhatIsFreeAndCancelsIt) {
    auto& screen = picking();
    EXPECT_EQ(screen.选择房源.caption(), "取消房源选择");
    EXPECT_TRUE(screen.提示.visible());
    for (int column = 0; column < 4; ++column) screen.地图.click(1, column);
    for (int column = 0; column < 3; ++column) screen.地图.click(4, column);
    EXPECT_FALSE(screen.突出显示.visible());
    EXPECT_EQ(marked(screen),
              (Lines{"标记(1) 101 at 4", "标记(2) A at 16", "标记(3) B at 17", "标记(4) C at 18"}));
    EXPECT_EQ(screen.状态栏.panel(0), "所选面积合计：193.76");
    EXPECT_EQ(screen.选中.标记[0].colour(), rgb(0, 128, 128));

    screen.选中.标记[1].click(MouseButton::other);
    EXPECT_EQ(infoOf(screen), "30||【客户编号】  |1||单元可出租");
    EXPECT_EQ(screen.信息.面板.anchor(), &screen.选中.标记[1]);
    screen.选中.标记[1].click(MouseButton::left);
    EXPECT_EQ(infoOf(screen), "closed");
    EXPECT_EQ(marked(screen), (Lines{"标记(1) 101 at 4", "标记(2) B at 17", "标记(3) C at 18"}));
    EXPECT_EQ(screen.选中.标记[1].area(), screen.地图.cellArea(4, 1));
    EXPECT_EQ(screen.状态栏.panel(0), "所选面积合计：163.76");
    screen.选中.标记[2].click(MouseButton::left);
    // By the keyboard, at the cell below a marker.
    screen.地图.click(1, 0);
    EXPECT_EQ(marked(screen), (Lines{"标记(1) B at 17"}));

    screen.选中.标记[0].click(MouseButton::other);
    screen.选择房源.click();
    EXPECT_EQ(screen.选择房源.caption(), "选择房源");
    EXPECT_FALSE(screen.房源选择确定.enabled());
    EXPECT_FALSE(screen.提示.visible());
    EXPECT_TRUE(marked(screen).empty());
    EXPECT_EQ(infoOf(screen), "closed");
    EXPECT_EQ(screen.状态栏.panel(0), "所选面积合计：0.00");
}

TEST_F(UnitMap, MarkersStandForPlacesOfTheMap) {
    auto& screen = picking();
    screen.地图.click(4, 2);
    screen.地图.resize(2 * 700 + 200, 3000);
    EXPECT_EQ(screen.选中.标记[0].area(), (Area{1400, 1900, 700, 650}));
    // Its place is beyond the map of two columns: what was picked there is known all the same.
    const auto area = screen.选中.面积合计();
    EXPECT_GT(area, 0);
    screen.地图.click(1, 0);
    EXPECT_GT(screen.选中.面积合计(), area);
    screen.房源选择确定.click();
    EXPECT_EQ(program.app.screens.get<Frm意向书信息>().单元列表.rows(), 3);
}

/// Whoever comes from the letter sees the map as it is now, and can pick on it.
TEST_F(UnitMap, OpenedAgainForTheSameOfficeItIsDrawnAnew) {
    auto& screen = picking();
    screen.选择房源.click();
    screen.地图.click(4, 2);
    screen.统计信息.click();
    ASSERT_FALSE(screen.地图框.visible());
    program.run({"Update 室表 Set 室='新名' Where 室='" + screen.地图.text(4, 2) + "'"});
    screen.openForPicking(screen.区域.text());
    EXPECT_TRUE(screen.地图框.visible());
    EXPECT_FALSE(screen.突出显示.visible());
    EXPECT_EQ(screen.地图.text(4, 2), "新名");
}

TEST_F(UnitMap, HandsThePickedUnitsToTheLetter) {
    auto& letter = program.app.screens.get<Frm意向书信息>();
    letter.管理项目.pick("01 东塔");
    letter.单元.面板.open();
    letter.单元列表.append({"一号楼", "旧", 1, 99});
    letter.单元.单元选择.click();
    EXPECT_EQ(letter.单元列表.rows(), 1);
    auto& map = program.app.screens.get<Frm房源一览表>();
    EXPECT_EQ(map.区域.text(), "01 东塔");
    EXPECT_EQ(program.desktop.shown.back(), Frm房源一览表::screenName);
    EXPECT_TRUE(map.选择房源.usable());
    EXPECT_TRUE(map.房源选择确定.usable());
    EXPECT_EQ(map.选择房源.caption(), "取消房源选择");
    EXPECT_TRUE(map.提示.visible());
    ASSERT_EQ(map.地图.text(3, 1), "B");
    map.地图.click(3, 1);
    map.地图.click(1, 0);
    map.房源选择确定.click();
    EXPECT_EQ(program.app.screens.loaded(Frm房源一览表::screenName), nullptr);
    EXPECT_EQ(program.desktop.shown.back(), Frm意向书信息::screenName);
    const auto row = [&](int at) {
        std::string all;
        for (int column = 0; column < 6; ++column) all += letter.单元列表.text(at, column) + "|";
        return all;
    };
    ASSERT_EQ(letter.单元列表.rows(), 3);
    EXPECT_EQ(row(1), "1|二号楼|B|31.26|7||");
    EXPECT_EQ(row(2), "2|一号楼|101|100.5|1||");
    program.app.screens.dropUnloaded();

    program.app.screens.get<Frm房源一览表>().openForPicking("01 东塔");
    program.app.screens.get<Frm房源一览表>().房源选择确定.click();
    ASSERT_EQ(letter.单元列表.rows(), 4);
    EXPECT_EQ(row(3), "3|||0|0||");
}

TEST_F(UnitMap, TellsWhatIsLetOfEachSection) {
    let(4, "K4", "己");
    auto& screen = opened();
    screen.统计信息.click();
    EXPECT_EQ(screen.统计信息.caption(), "关闭统计信息");
    EXPECT_FALSE(screen.地图框.visible());
    EXPECT_TRUE(screen.统计.框.visible());
    ASSERT_EQ(screen.统计.块.count(), 2);
    // 120 of 290.5, the kept unit that is let among them.
    EXPECT_EQ(screen.统计.块[0].标题.caption(), "  一号楼 出租率：41.31%");
    EXPECT_EQ(screen.统计.块[0].总面积.caption(), "可出租总面积：290.5");
    EXPECT_EQ(screen.统计.块[1].标题.caption(), "  二号楼 出租率：0.00%");
    EXPECT_EQ(screen.统计.块[1].总面积.caption(), "可出租总面积：93.256");
    EXPECT_FALSE(screen.统计.滚动条.visible());
    screen.统计信息.click();
    EXPECT_EQ(screen.统计信息.caption(), "统计信息");
    EXPECT_TRUE(screen.地图框.visible());
    EXPECT_FALSE(screen.统计.框.visible());
    EXPECT_EQ(screen.统计.块.count(), 0);
    // The map that is drawn anew takes the statistics' place.
    screen.统计信息.click();
    screen.区域.pick("01 东塔");
    EXPECT_EQ(screen.统计信息.caption(), "统计信息");
    EXPECT_TRUE(screen.地图框.visible());
}

TEST_F(UnitMap, DrawsThePiesOfTheSections) {
    letOut(1, "自用");
    let(5, "K5", "庚");
    auto& screen = opened();
    screen.统计信息.click();
    for (int k = 0; k < 2; ++k) screen.统计.块[k].饼图.resize(2700, 1800, 1.0 / 15);
    const auto at = [&](int tile, double x, double y) { return screen.统计.块[tile].饼图.point(x, y); };
    // 130 of 190 are let, that is 68 parts of 100, behind the 32 that are not.
    EXPECT_EQ(at(0, 400, 800), rgb(253, 205, 140));
    EXPECT_EQ(at(0, 1700, 500), rgb(182, 250, 192));
    EXPECT_EQ(at(0, 1300, 1400), rgb(182, 250, 192));
    EXPECT_EQ(at(0, 1300, 880 + 640 + 100), rgb(122, 190, 132));
    EXPECT_EQ(at(0, 1300, 880 + 640 + 260), windowColour);
    EXPECT_EQ(at(1, 1300, 1400), rgb(253, 205, 140));
    screen.统计.块[1].饼图.clear();
    screen.绘饼图(1);
    EXPECT_EQ(at(1, 1300, 1400), rgb(253, 205, 140));
}

TEST_F(UnitMap, ScrollsTheTilesOfManySections) {
    for (int id = 3; id <= 7; ++id) addSection(id, std::to_string(10 + id), "丙");
    auto& screen = opened();
    screen.统计信息.click();
    ScrollBar& bar = screen.统计.滚动条;
    ASSERT_EQ(screen.统计.块.count(), 7);
    EXPECT_TRUE(bar.visible());
    EXPECT_EQ(bar.last(), 2);
    EXPECT_EQ(screen.统计.块[3].top(), 3 * (统计块::height + 60));
    bar.scrollTo(9);
    EXPECT_EQ(bar.position(), 2);
    EXPECT_EQ(screen.统计.块[3].top(), 1 * (统计块::height + 60));
    EXPECT_EQ(screen.统计.块[0].top(), -2 * (统计块::height + 60));
    program.run({"Delete From 楼表 Where L_ID=107"});
    screen.区域.pick("01 东塔");
    screen.统计信息.click();
    EXPECT_EQ(bar.last(), 1);
    EXPECT_EQ(screen.统计.块[0].top(), 0);
}

}  // namespace

}  // namespace desk
