#include "customers/registration.h"
#include "reference/customer_dictionaries.h"
#include "reference/fixture.h"
#include "reference/lead_settings.h"

namespace desk {
namespace {

using Dictionaries = SetupTest;

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

}  // namespace
}  // namespace desk
