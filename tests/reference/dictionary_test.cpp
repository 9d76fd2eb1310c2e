#include "customers/registration.h"
#include "reference/customer_dictionaries.h"
#include "reference/fixture.h"
#include "reference/lead_settings.h"

namespace desk {
namespace {

/// A tab and what is particular to it.
struct Case {
    Name table;
    Name column;
    const char* nothingChosen;
    const char* question;
    int tab;
    bool leads;  ///< on the screen of the lead settings
};

class Dictionary : public SetupTest, public testing::WithParamInterface<Case> {
  protected:
    DictionaryTab& opened() {
        if (GetParam().leads) {
            auto& screen = open<Frm引驻设置>();
            screen.页签.click(GetParam().tab);
            bar = &screen.状态栏;
            return GetParam().tab == 0 ? screen.咨询内容 : screen.媒体;
        }
        auto& screen = open<Frm客户相关信息设置>();
        screen.页签.click(GetParam().tab);
        bar = &screen.状态栏;
        return GetParam().tab == 0 ? screen.区域 : GetParam().tab == 1 ? screen.企业性质 : screen.行业;
    }
    std::vector<std::string> table() {
        return program.rows(sql("Select {},说明 From {} Order By {}", GetParam().column, GetParam().table,
                                GetParam().column));
    }
    std::string title() const { return std::string(GetParam().table).substr(3); }

    StatusBar* bar = nullptr;
};

TEST_P(Dictionary, AnEntryIsAddedChangedAndRefused) {
    auto& tab = opened();
    const auto before = table().size();
    EXPECT_EQ(panels(*bar), "新增|" + title());
    EXPECT_TRUE(tab.框.visible());
    ASSERT_EQ(tab.列表.rows(), 4);
    EXPECT_EQ(line(tab.列表, 3), "→||");
    EXPECT_EQ(tab.列表.text(1, 0), "1");

    tab.确定.click();
    EXPECT_EQ(said(), std::string(GetParam().column) + "不能为空，请重新输入！");
    tab.名称.type("  新词 ");
    tab.说明.type(" 注 ");
    tab.确定.click();
    EXPECT_EQ(table().size(), before + 1);
    EXPECT_EQ(line(tab.列表, 3), "→|新词|注");
    EXPECT_EQ(line(tab.列表, 4), "4||");

    bool focused = false;
    tab.名称.focusAsked += [&] { focused = true; };
    tab.确定.click();
    EXPECT_EQ(said(), "已存在相同的" + std::string(GetParam().column) + "，请重新输入！");
    EXPECT_TRUE(focused);
    EXPECT_EQ(table().size(), before + 1);

    tab.列表.click(3, 1);
    EXPECT_EQ(panels(*bar), "修改|" + title());
    tab.名称.type("改词");
    tab.说明.type("");
    tab.确定.click();
    EXPECT_EQ(program.rows(sql("Select 说明 From {} Where {}='改词'", GetParam().table, GetParam().column)),
              std::vector<std::string>{""});
    EXPECT_TRUE(program.rows(sql("Select * From {} Where 说明 Is Null", GetParam().table)).empty());
    EXPECT_TRUE(
        program.rows(sql("Select * From {} Where {}='新词'", GetParam().table, GetParam().column)).empty());
}

TEST_P(Dictionary, ADeletionAsksInItsOwnWords) {
    auto& tab = opened();
    tab.删除.click();
    EXPECT_EQ(said(), GetParam().nothingChosen);
    tab.列表.click(1, 1);
    const std::string name = tab.名称.text();
    willAnswer(Answer::no);
    tab.删除.click();
    EXPECT_EQ(program.desktop.messages.back().title, "提醒");
    EXPECT_EQ(said(), GetParam().question);
    EXPECT_EQ(table().size(), 2U);

    willAnswer(Answer::yes);
    if (title() == "企业性质设置") {
        EXPECT_THROW(tab.删除.click(), RuntimeFailure);
        EXPECT_EQ(table().size(), 2U);
        return;
    }
    tab.删除.click();
    EXPECT_EQ(table().size(), 1U);
    ASSERT_EQ(tab.列表.rows(), 3);
    EXPECT_NE(tab.列表.text(1, 1), name);
    EXPECT_EQ(tab.名称.text(), "");
    EXPECT_EQ(panels(*bar), "新增|" + title());
    EXPECT_EQ(line(tab.列表, 2), "→||");
}

INSTANTIATE_TEST_SUITE_P(
    Five, Dictionary,
    testing::Values(Case{"YZ_区域设置", "区域名称", "您尚未选择要删除的主职信息，请选择！",
                         "确定要删除选中的主职信息吗？", 0, false},
                    Case{"YZ_企业性质设置", "企业性质名称", "您尚未选择要删除的主职信息，请选择！",
                         "确定要删除选中的主职信息吗？", 1, false},
                    Case{"YZ_行业设置", "行业名称", "您尚未选择要删除的主职信息，请选择！",
                         "确定要删除选中的主职信息吗？", 2, false},
                    Case{"YZ_咨询内容设置", "咨询内容", "您尚未选择要删除的咨询内容信息，请选择！",
                         "确定要删除选中的咨询内容信息吗？", 0, true},
                    Case{"YZ_媒体设置", "媒体名称", "您尚未选择要删除的媒体名称，请选择！",
                         "确定要删除选中的媒体名称吗？", 1, true}));

using Dictionaries = SetupTest;

TEST_F(Dictionaries, TwoNewNamesInARowTakeOneRowOfTheGridAndTwoOfTheTable) {
    auto& screen = open<Frm客户相关信息设置>();
    for (const char* name : {"徐汇", "长宁"}) {
        screen.区域.名称.type(name);
        screen.区域.确定.click();
    }
    EXPECT_EQ(line(screen.区域.列表, 3), "→|长宁|");
    EXPECT_EQ(screen.区域.列表.rows(), 6);
    EXPECT_EQ(program.rows("Select * From YZ_区域设置").size(), 4U);
    EXPECT_EQ(open<Frm客户相关信息设置>().区域.列表.rows(), 6);
}

TEST_F(Dictionaries, ARenameIsNotCheckedAndAnEntryThatHasGoneIsNotWritten) {
    auto& tab = open<Frm客户相关信息设置>().区域;
    tab.列表.click(1, 1);
    const std::string other = tab.列表.text(2, 1);
    tab.名称.type(other);
    tab.确定.click();
    EXPECT_TRUE(program.desktop.messages.empty());
    EXPECT_EQ(program.rows(sql("Select * From YZ_区域设置 Where 区域名称='{}'", other)).size(), 2U);

    program.run({"Delete From YZ_区域设置"});
    tab.列表.click(2, 1);
    tab.名称.type("别处");
    tab.确定.click();
    EXPECT_TRUE(program.rows("Select * From YZ_区域设置").empty());
    EXPECT_EQ(tab.列表.text(2, 1), "别处");
}

TEST_F(Dictionaries, AQuoteIsPartOfAName) {
    auto& tab = open<Frm客户相关信息设置>().行业;
    static_cast<Frm客户相关信息设置&>(tab.框.screen()).页签.click(2);
    tab.名称.type("O'Neil");
    tab.确定.click();
    EXPECT_EQ(program.rows("Select * From YZ_行业设置 Where 行业名称='O''Neil'").size(), 1U);
    tab.列表.click(3, 1);
    willAnswer(Answer::yes);
    tab.删除.click();
    EXPECT_EQ(program.rows("Select * From YZ_行业设置").size(), 2U);
}

TEST_F(Dictionaries, LeavingATabKeepsNoModeOfIt) {
    auto& screen = open<Frm引驻设置>();
    screen.媒体.列表.click(1, 1);  // hidden: nothing happens
    EXPECT_EQ(panels(screen.状态栏), "新增|咨询内容设置");
    screen.咨询内容.列表.click(1, 1);
    screen.页签.click(1);
    EXPECT_EQ(panels(screen.状态栏), "新增|媒体设置");
    EXPECT_FALSE(screen.咨询内容.框.visible());
    screen.页签.click(0);
    EXPECT_EQ(panels(screen.状态栏), "新增|咨询内容设置");
    EXPECT_EQ(screen.咨询内容.列表.row(), 3);
    screen.咨询内容.退出.click();
    EXPECT_EQ(program.app.screens.loaded(Frm引驻设置::screenName), nullptr);
}

TEST_F(Dictionaries, RegisteredCustomersKeepTheirTexts) {
    program.run(
        {"Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,公司名称,所在区域,从事行业,登记日期) "
         "Values ('9','01','引驻来电','甲公司','浦东','软件','2011-2-1')"});
    auto& screen = open<Frm客户相关信息设置>();
    for (int row = 1; row < screen.区域.列表.rows(); ++row)
        if (screen.区域.列表.text(row, 1) == "浦东") screen.区域.列表.click(row, 1);
    screen.区域.名称.type("浦东新区");
    screen.区域.确定.click();
    screen.页签.click(2);
    for (int row = 1; row < screen.行业.列表.rows(); ++row)
        if (screen.行业.列表.text(row, 1) == "软件") screen.行业.列表.click(row, 1);
    willAnswer(Answer::yes);
    screen.行业.删除.click();
    EXPECT_EQ(program.rows("Select 所在区域,从事行业 From YZ_引驻客户信息"),
              std::vector<std::string>{"浦东|软件"});

    program.app.screens.offer(Frm引驻客户信息登记::screenName,
                              [this] { return std::make_unique<Frm引驻客户信息登记>(program.app); });
    auto& page = program.app.screens.get<Frm引驻客户信息登记>().来电;
    page.管理项目.pick("01 东塔");
    page.客户.click(*page.客户.roots().front()->children().front());
    EXPECT_EQ(page.区域其它.文本.text(), "浦东");
}

using States = SetupTest;

TEST_F(States, ShortCodesComeFirstAndColoursArePainted) {
    program.run(
        {"Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示,说明) Values ('10','签约',255,'末')",
         "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('9','谈判',65280)"});
    auto& screen = open<Frm引驻设置>();
    screen.页签.click(2);
    auto& tab = screen.跟进状态;
    EXPECT_EQ(line(tab.列表, 1), "1|9|谈判||");
    EXPECT_EQ(line(tab.列表, 2), "2|10|签约||末");
    EXPECT_EQ(tab.列表.cellColour(1, 3), 65280);
    tab.列表.click(2, 1);
    EXPECT_EQ(tab.颜色.colour(), 255);
    EXPECT_EQ(tab.说明.text(), "末");
    EXPECT_EQ(panels(screen.状态栏), "修改|跟进状态设置");
    tab.列表.click(3, 1);
    EXPECT_EQ(tab.颜色.colour(), windowColour);
    EXPECT_EQ(tab.状态编号.text(), "");
}

TEST_F(States, ANewStateTakesTheSwatchAndADuplicateIsRefused) {
    auto& screen = open<Frm引驻设置>();
    screen.页签.click(2);
    auto& tab = screen.跟进状态;
    tab.确定.click();
    EXPECT_EQ(said(), "状态编号不能为空，请重新输入！");
    tab.状态编号.type(" 1 ");
    tab.确定.click();
    EXPECT_EQ(said(), "状态名称不能为空，请重新输入！");
    tab.状态名称.type("初访");
    tab.说明.type("首次");
    program.desktop.colours = {rgb(1, 2, 3), std::nullopt};
    tab.选择颜色.click();
    tab.选择颜色.click();  // cancelled
    tab.确定.click();
    EXPECT_EQ(program.rows("Select 状态编号,状态名称,颜色表示,说明 From YZ_跟进状态设置"),
              std::vector<std::string>{"1|初访|197121|首次"});
    EXPECT_EQ(line(tab.列表, 1), "→|1|初访||首次");
    EXPECT_EQ(tab.列表.cellColour(1, 3), rgb(1, 2, 3));
    EXPECT_EQ(line(tab.列表, 2), "2||||");
    tab.确定.click();
    EXPECT_EQ(said(), "已存在相同的状态编号，请重新输入！");
}

TEST_F(States, AChangedStateShowsItsColourInTheLastRowUntilItIsReadAgain) {
    program.run({"Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示,说明) Values ('1','初访',255,'旧')",
                 "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示,说明) Values ('2','复访',9,'')"});
    auto& screen = open<Frm引驻设置>();
    screen.页签.click(2);
    auto& tab = screen.跟进状态;
    tab.列表.click(1, 1);
    tab.状态编号.type("77");
    tab.状态名称.type("初次");
    tab.说明.type("新");
    program.desktop.colours = {65280};
    tab.选择颜色.click();
    tab.确定.click();
    EXPECT_EQ(program.rows("Select 状态编号,状态名称,颜色表示,说明 From YZ_跟进状态设置 Order By 状态编号"),
              (std::vector<std::string>{"1|初次|65280|新", "2|复访|9|"}));
    EXPECT_EQ(line(tab.列表, 1), "1|77|初次||旧");
    EXPECT_EQ(tab.列表.cellColour(1, 3), 255);
    EXPECT_EQ(line(tab.列表, 3), "→||||新");
    EXPECT_EQ(tab.列表.cellColour(3, 3), 65280);
    EXPECT_EQ(tab.列表.rows(), 4);

    // The grid shows the typed code, under which the table has nothing.
    tab.列表.click(1, 1);
    tab.状态名称.type("再改");
    tab.确定.click();
    EXPECT_TRUE(program.rows("Select * From YZ_跟进状态设置 Where 状态名称='再改'").empty());
    EXPECT_EQ(open<Frm引驻设置>().跟进状态.列表.text(1, 1), "1");
}

TEST_F(States, ADeletionLeavesTheOthers) {
    program.run({"Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('1','初访',255)",
                 "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('2','复访',9)"});
    auto& screen = open<Frm引驻设置>();
    screen.页签.click(2);
    auto& tab = screen.跟进状态;
    tab.删除.click();
    EXPECT_EQ(said(), "您尚未选择要删除的跟进状态信息，请选择！");
    tab.列表.click(1, 1);
    willAnswer(Answer::yes);
    tab.删除.click();
    EXPECT_EQ(said(), "确定要删除选中跟进状态信息吗？");
    EXPECT_EQ(program.rows("Select 状态编号 From YZ_跟进状态设置"), std::vector<std::string>{"2"});
    EXPECT_EQ(line(tab.列表, 1), "1|2|复访||");
    EXPECT_EQ(tab.列表.cellColour(1, 3), 9);
    EXPECT_EQ(tab.状态名称.text(), "");
}

}  // namespace
}  // namespace desk
