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

TEST_F(Registration, AsksForEachMissingFieldInTurn) {
    登记页& page = 来人();
    page.新增.click();
    EXPECT_EQ(page.登记编号.text(), "<请输入登记编号>");
    const auto refusal = [&] {
        page.确定.click();
        EXPECT_TRUE(program.desktop.messages.empty() || program.desktop.messages.back().icon == Icon::none);
        return program.desktop.takeMessage();
    };
    EXPECT_EQ(refusal(), "请输入登记编号");
    page.登记编号.type("");
    EXPECT_EQ(refusal(), "请输入登记编号");
    page.登记编号.type("A1");
    EXPECT_EQ(refusal(), "请输入客户姓名！");
    page.客户姓名.type("陈先生");
    EXPECT_EQ(refusal(), "请选择或输入区域信息！");
    page.区域其它.勾选.click();
    page.区域其它.文本.type(" 杨浦 ");
    EXPECT_EQ(refusal(), "请选择企业性质！");
    page.企业性质->pick("外资");
    EXPECT_EQ(refusal(), "请选择从事行业！");
    page.从事行业.pick("软件");
    EXPECT_EQ(refusal(), "请选择媒体！");
    page.媒体->列表.click(0);
    page.媒体->列表.click(1);
    page.媒体->其它.勾选.click();
    page.媒体->其它.文本.type("朋友");
    EXPECT_EQ(refusal(), "请选择询问重点！");
    page.询问重点.其它.勾选.click();
    page.询问重点.其它.文本.type("层高");
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(program.rows("Select 所在区域,媒体,询问重点,公司名称,需求面积 From YZ_引驻客户信息"),
              std::vector<std::string>{"杨浦|报纸,网络,朋友|层高||"});

    来电().新增.click();
    来电().登记编号.type("B1");
    来电().确定.click();
    EXPECT_EQ(program.desktop.takeMessage(), "请输入联系电话！");
    中介().采用自动编号.click();
    中介().新增.click();
    中介().确定.click();
    EXPECT_EQ(program.desktop.takeMessage(), "请选择中介公司！");
}

TEST_F(Registration, AnOtherRegionTakesThePlaceOfTheChosenOne) {
    fill(来人(), "A1", "甲公司", "1");
    来人().区域其它.勾选.click();
    来人().区域其它.文本.type("虹口");
    来人().确定.click();
    EXPECT_EQ(program.rows("Select 所在区域 From YZ_引驻客户信息"), std::vector<std::string>{"虹口"});
}

TEST_F(Registration, StoresWhatStandsInTheFields) {
    fill(来人(), " A 1", "甲公司", "021-1");
    来人().需求面积.type("120.5平方米");
    来人().预算租金->type("面议");
    来人().推荐楼层->type("5-8");
    来人().登记日期.pick(DateTime(2011, 2, 1));
    来人().确定.click();
    EXPECT_EQ(
        program.rows(
            "Select 登记编号,管理处代号,流水号,客源类别,需求面积,预算租金,推荐楼层,登记日期,职位,分配日期 "
            "From YZ_引驻客户信息"),
        std::vector<std::string>{" A 1|01||引驻来人|120.5|0|5-8|2011-02-01||"});
    EXPECT_TRUE(
        program.rows("Select * From YZ_引驻客户信息 Where 职位 is not Null Or 传真 is not Null").empty());
    EXPECT_EQ(来人().登记编号.tag, program.rows("Select ID From YZ_引驻客户信息").front());
    // Still entering: the same again makes another lead, but for the checks.
    EXPECT_EQ(来人().新增.caption(), "取消");
    来人().确定.click();
    EXPECT_EQ(program.desktop.takeMessage(), "在客户登记信息中已存在相同公司名称的客户，请核对！");
}

TEST_F(Registration, RefusesTheSameCompanyOrPhoneButNotFromAgencies) {
    add(来人(), "A1", "甲公司", "021-1");
    fill(来电(), "B1", " 甲公司 ", "021-2");
    来电().确定.click();
    ASSERT_EQ(program.desktop.messages.size(), 1U);
    EXPECT_EQ(program.desktop.messages[0].icon, Icon::information);
    EXPECT_EQ(program.desktop.takeMessage(), "在客户登记信息中已存在相同公司名称的客户，请核对！");
    来电().公司名称.type("");
    来电().客户电话.type("021-1");
    来电().确定.click();
    EXPECT_EQ(program.desktop.takeMessage(),
              "在客户登记信息中已存在相同联系电话的客户，请核对客户是否重复！");
    来电().管理项目.pick("02 西塔");  // checks are a matter of one office
    来电().确定.click();
    EXPECT_EQ(program.desktop.takeMessage(), "");
    add(中介(), "C1", "甲公司", "021-1");
    EXPECT_EQ(program.desktop.takeMessage(), "");
    EXPECT_EQ(leads(), 3);

    fill(中介(), "A1", "乙公司", "9");
    中介().确定.click();
    EXPECT_EQ(program.desktop.takeMessage(), "A1登记的编号已经存在，请输入其他的登记编号！");
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

TEST_F(Registration, TheNumberFieldFollowsTheAutomaticBoxWhileEntering) {
    来人().采用自动编号.click();
    EXPECT_FALSE(来人().登记编号.locked());
    来人().新增.click();
    EXPECT_EQ(来人().登记编号.text(), "<保存时自动生成编号>");
    EXPECT_TRUE(来人().登记编号.locked());
    来人().采用自动编号.click();
    EXPECT_EQ(来人().登记编号.text(), "");
    EXPECT_FALSE(来人().登记编号.locked());

    // On the agency page the region's box decides, whatever was clicked.
    中介().新增.click();
    中介().采用自动编号.click();
    EXPECT_EQ(中介().登记编号.text(), "");
    中介().区域其它.勾选.click();
    中介().采用自动编号.click();
    EXPECT_EQ(中介().登记编号.text(), "<保存时自动生成编号>");
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

TEST_F(Registration, ACallWithoutCompanyLeavesTheOldOneInTheRow) {
    add(来电(), "B1", "旧公司", "1");
    choose(来电(), "DMB1");
    来电().公司名称.type(" ");
    来电().公司地址.type("新地址");
    来电().确定.click();
    EXPECT_EQ(program.rows("Select 公司名称,公司地址 From YZ_引驻客户信息"),
              std::vector<std::string>{"旧公司|"});
}

TEST_F(Registration, AnAssignedLeadIsShownButFrozen) {
    add(来人(), "A1", "甲公司", "1");
    add(来人(), "A2", "乙公司", "2");
    program.run({"Update YZ_引驻客户信息 Set 分配日期='2011-3-1' Where 登记编号='A1'"});
    choose(来人(), "RMA1");
    EXPECT_EQ(来人().公司名称.text(), "甲公司");
    EXPECT_FALSE(来人().确定.enabled());
    EXPECT_FALSE(来人().删除.enabled());
    choose(来人(), "RMA2");
    EXPECT_TRUE(来人().确定.enabled());
    choose(来人(), "RMA1");
    来人().新增.click();
    EXPECT_TRUE(来人().确定.enabled());
    EXPECT_FALSE(来人().删除.enabled());
}

TEST_F(Registration, DeletingAsksFirstAndTakesTheSelectedLeadOfTheOffice) {
    add(来人(), "A1", "甲公司", "1");
    来人().删除.click();
    choose(来人(), "R");
    来人().删除.click();
    EXPECT_TRUE(program.desktop.messages.empty());
    program.run({"Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别) Values ('A1','02','引驻来人')"});
    choose(来人(), "RMA1");
    program.desktop.answers = {Answer::no, Answer::yes};
    来人().删除.click();
    EXPECT_EQ(leads(), 2);
    EXPECT_EQ(program.desktop.messages.back().title, "提醒");
    EXPECT_EQ(program.desktop.takeMessage(), "确定要删除编号为 A1的信息？ ");
    来人().删除.click();
    EXPECT_EQ(program.rows("Select 管理处代号 From YZ_引驻客户信息"), std::vector<std::string>{"02"});
    EXPECT_TRUE(nodes(来人()).empty());
}

TEST_F(Registration, AnAgencyIsPickedFromThoseOfTheOffice) {
    auto& agency = *中介().中介;
    agency.选择中介公司.click();
    ASSERT_EQ(agency.列表.rows(), 3);
    EXPECT_EQ(agency.列表.text(1, 1), "安居");
    EXPECT_EQ(agency.列表.columnWidth(2), 0);
    agency.列表.click(2, 0);
    agency.面板确定.click();
    EXPECT_EQ(agency.中介公司名称.text(), "佳信");
    EXPECT_FALSE(agency.面板.visible());
    中介().管理项目.pick("02 西塔");
    program.run({"Delete From YZ_中介公司设置"});
    agency.选择中介公司.click();
    agency.面板确定.click();
    EXPECT_EQ(agency.中介公司名称.text(), "佳信");
    EXPECT_TRUE(agency.面板.visible());
    agency.选择中介公司.click();
    EXPECT_FALSE(agency.面板.visible());
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

TEST_F(Registration, TwoLeadsOfOneNumberAnswerToItBoth) {
    add(来人(), "A1", "甲公司", "1");
    program.run(
        {"Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,公司名称) Values "
         "('A1','01','引驻来人','乙公司')"});
    来人().管理项目.pick("01 东塔");
    const auto& leads = 来人().客户.roots().front()->children();
    ASSERT_EQ(leads.size(), 2U);
    来人().客户.click(*leads[1]);
    EXPECT_EQ(来人().登记编号.text(), "A1");
    program.desktop.answers = {Answer::no};
    来人().删除.click();
    EXPECT_EQ(program.desktop.takeMessage(), "确定要删除编号为 A1的信息？ ");
}

TEST_F(Registration, ClosingAsksNothing) {
    来人().新增.click();
    来人().公司名称.type("半句");
    来人().退出.click();
    EXPECT_EQ(program.app.screens.loaded(Frm引驻客户信息登记::screenName), nullptr);
    EXPECT_TRUE(program.desktop.messages.empty());
}

}  // namespace
}  // namespace desk
