#include "customers/registration.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/test_program.h"

namespace desk {
namespace {

class Registration : public testing::Test {
  protected:
    Registration() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.app.screens.offer(Frm引驻客户信息登记::screenName,
                                  [this] { return std::make_unique<Frm引驻客户信息登记>(program.app); });
        program.enter();
        program.app.screens.open(Frm引驻客户信息登记::screenName);
        for (登记页* page : screen().pages()) page->管理项目.pick("01 东塔");
    }

    Frm引驻客户信息登记& screen() { return program.app.screens.get<Frm引驻客户信息登记>(); }
    登记页& 来人() { return screen().来人; }
    登记页& 来电() { return screen().来电; }
    登记页& 中介() { return screen().中介来人; }

    /// Fills what a page asks for, and what tells one lead from another.
    void fill(登记页& page, const std::string& number, const std::string& company, const std::string& phone) {
        page.新增.click();
        if (!page.采用自动编号.checked()) page.登记编号.type(number);
        page.公司名称.type(company);
        page.客户姓名.type("陈先生");
        page.客户电话.type(phone);
        page.区域.pick("浦东");
        if (page.企业性质) page.企业性质->pick("外资");
        page.从事行业.pick("软件");
        if (page.媒体) page.媒体->列表.click(0);
        if (page.中介) page.中介->中介公司名称.type("佳信");
        page.询问重点.列表.click(1);
    }
    void add(登记页& page, const std::string& number, const std::string& company, const std::string& phone) {
        fill(page, number, company, phone);
        page.确定.click();
        page.新增.click();
    }
    void choose(登记页& page, const std::string& key) {
        TreeNode* node = page.客户.find(key);
        ASSERT_NE(node, nullptr) << key;
        page.客户.click(*node);
    }
    std::vector<std::string> nodes(登记页& page) {
        std::vector<std::string> texts;
        for (const auto& node : page.客户.roots().front()->children()) texts.emplace_back(node->text());
        return texts;
    }
    long leads() { return std::stol(program.rows("Select Count(*) AS SL From YZ_引驻客户信息").front()); }

    TestProgram program;
};

TEST_F(Registration, OpensWithListsAndWithoutAChoice) {
    program.app.screens.unload(screen());
    program.app.screens.open(Frm引驻客户信息登记::screenName);
    for (登记页* page : screen().pages()) {
        ASSERT_EQ(page->管理项目.count(), 2);  // neither the ended office nor another department's
        EXPECT_EQ(page->管理项目.items()[0].text, "01 东塔");
        EXPECT_FALSE(page->管理项目.hasSelection());
        EXPECT_EQ(page->区域.count(), 2);
        EXPECT_EQ(page->登记日期.value(), DateTime(2011, 3, 5));
        EXPECT_FALSE(page->采用自动编号.checked());
        page->新增.click();
        page->确定.click();
        EXPECT_EQ(page->新增.caption(), "新增");
    }
    中介().中介->选择中介公司.click();
    EXPECT_TRUE(中介().中介->面板.visible());
    EXPECT_EQ(中介().中介->列表.rows(), 1);
    EXPECT_TRUE(program.desktop.messages.empty());
    EXPECT_EQ(screen().状态栏.panel(1), "引驻来人登记");
    screen().页签.click(2);
    EXPECT_EQ(screen().状态栏.panel(0), "新增");
    EXPECT_EQ(screen().状态栏.panel(1), "中介来人登记");
}

TEST_F(Registration, AutomaticNumbersRunPerOfficeAndStepOverTypedOnes) {
    来人().采用自动编号.click();
    add(来人(), "", "一", "1");
    EXPECT_EQ(program.rows("Select 登记编号,流水号 From YZ_引驻客户信息"),
              std::vector<std::string>{"2011-000001|1"});
    add(来电(), "2011-000002", "二", "2");
    add(来人(), "", "三", "3");
    EXPECT_EQ(program.rows("Select 登记编号,流水号 From YZ_引驻客户信息 Where 公司名称='三'"),
              std::vector<std::string>{"2011-000003|3"});
    来人().管理项目.pick("02 西塔");
    program.run({"Delete From Temp_Type"});
    add(来人(), "", "一", "1");
    EXPECT_EQ(program.rows("Select 登记编号 From YZ_引驻客户信息 Where 管理处代号='02'"),
              std::vector<std::string>{"-000001"});
}

TEST_F(Registration, TheTreeSortsNumbersByLengthAndShowsWho) {
    add(来人(), "2011-9", "九公司", "9");
    add(来人(), "2011-10", "", "10");
    add(来电(), "2011-11", "", "11");
    add(中介(), "2011-12", "", "12");
    来人().管理项目.pick("01 东塔");
    EXPECT_EQ(来人().客户.roots().front()->text(), "来人登记");
    EXPECT_EQ(nodes(来人()),
              (std::vector<std::string>{"2011-9 九公司 [2011-03-05]", "2011-10 陈先生 [2011-03-05]"}));
    EXPECT_EQ(nodes(来电()), std::vector<std::string>{"2011-11 陈先生 [2011-03-05]"});
    EXPECT_EQ(nodes(中介()), std::vector<std::string>{"2011-12  [2011-03-05]"});
    EXPECT_NE(中介().客户.find("ZM2011-12"), nullptr);
    来人().管理项目.pick("02 西塔");
    EXPECT_TRUE(nodes(来人()).empty());
}

TEST_F(Registration, ALeadComesBackAsEachPageShowsIt) {
    for (登记页* page : screen().pages()) {
        const std::string own(page->rules().键前缀);
        add(*page, own, "", own);
    }
    program.run(
        {"Update YZ_引驻客户信息 Set 所在区域='崇明',媒体='甲,网络,乙',询问重点='租金,层高',企业性质='没有',"
         "公司名称='某公司',预算租金=3.5,登记日期='2010-12-31'"});
    for (登记页* page : screen().pages()) {
        page->管理项目.pick("01 东塔");
        choose(*page, std::string(page->rules().键前缀) + std::string(page->rules().键前缀));
        EXPECT_EQ(page->公司名称.text(), "某公司");
        EXPECT_EQ(page->登记日期.value(), DateTime(2010, 12, 31));
        EXPECT_FALSE(page->区域.hasSelection());
        EXPECT_EQ(page->询问重点.列表.selectedTexts(), std::vector<std::string>{"租金"});
        EXPECT_EQ(page->询问重点.其它.文本.text(), "层高");
        if (page->企业性质) {
            EXPECT_FALSE(page->企业性质->hasSelection());
            EXPECT_EQ(page->预算租金->text(), "3.5");
        }
        if (page->媒体) {
            EXPECT_EQ(page->媒体->列表.selectedTexts(), std::vector<std::string>{"网络"});
            EXPECT_EQ(page->媒体->其它.文本.text(), "甲,乙");
            EXPECT_FALSE(page->媒体->其它.勾选.checked());
        }
        const bool walkIn = page == &来人();
        EXPECT_EQ(page->区域其它.文本.text(), walkIn ? "" : "崇明");
        EXPECT_EQ(page->区域其它.勾选.checked(), !walkIn);
        EXPECT_EQ(page->询问重点.其它.勾选.checked(), !walkIn);
    }
}

TEST_F(Registration, AChangeKeepsNumberAndSerialAndIsNotCheckedForDuplicates) {
    来人().采用自动编号.click();
    add(来人(), "", "甲公司", "1");
    add(来人(), "", "乙公司", "2");
    来人().采用自动编号.click();
    choose(来人(), "RM2011-000002");
    EXPECT_EQ(来人().新增.caption(), "新增");
    来人().公司名称.type("甲公司");
    来人().客户电话.type("1");
    来人().备注.type("O’Neil");
    来人().确定.click();
    EXPECT_EQ(program.desktop.takeMessage(), "");
    EXPECT_EQ(program.rows("Select 登记编号,流水号,公司名称,备注 From YZ_引驻客户信息 Where 流水号=2"),
              std::vector<std::string>{"2011-000002|2|甲公司|O’Neil"});
    EXPECT_EQ(leads(), 2);

    // Under a number that was typed over there is no row to change.
    来人().登记编号.setLocked(false);
    来人().登记编号.type("另一个");
    try {
        来人().确定.click();
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), 3021);
    }
}

TEST_F(Registration, AQuoteIsPartOfAName) {
    add(来人(), "A'1", "O'Brien & Sons", "1");
    EXPECT_EQ(nodes(来人()), std::vector<std::string>{"A'1 O'Brien & Sons [2011-03-05]"});
    add(来人(), "A2", "O'Brien & Sons", "2");
    EXPECT_EQ(program.desktop.takeMessage(), "在客户登记信息中已存在相同公司名称的客户，请核对！");
    来人().客户.click(*来人().客户.find("RMA'1"));
    EXPECT_EQ(来人().公司名称.text(), "O'Brien & Sons");
    program.desktop.answers = {Answer::yes};
    来人().删除.click();
    EXPECT_EQ(leads(), 0);
}

}  // namespace
}  // namespace desk
