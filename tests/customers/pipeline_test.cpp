#include <gtest/gtest.h>

#include "base/failure.h"
#include "customers/assignment.h"
#include "customers/follow_up.h"
#include "support/test_program.h"

namespace desk {
namespace {

/// Teams, staff, states and a lead of each kind in office 01.
class Pipeline : public testing::Test {
  protected:
    Pipeline() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.run({
            "Insert Into YZ_组表 (组代号,组名称) Values ('10','外拓组')",
            "Insert Into YZ_组表 (组代号,组名称) Values ('2','现场组')",
            "Insert Into YZ_组表 (组代号,组名称) Values ('3','旧组')",
            "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期) Values ('10','01','2010-1-1')",
            "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期) Values ('2','01','2010-1-1')",
            "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号,设置日期,终止日期) Values "
            "('3','01','2010-1-1','2010-6-1')",
            "Insert Into 员工档案 (工号,姓名) Values ('E01','林晓')",
            "Insert Into 员工档案 (工号,姓名) Values ('E2','周平')",
            "Insert Into 员工档案 (工号,姓名,离职日期) Values ('E3','吴江','2010-5-1')",
            "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0101','招商专员','01')",
            "Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('E01','0101',1)",
            "Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('E2','0101',1)",
            "Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('E3','0101',1)",
            "Insert Into YZ_组人员设置 (组代号,员工工号) Values ('2','E01')",
            "Insert Into YZ_组人员设置 (组代号,员工工号) Values ('2','E2')",
            "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('1','初次联系',255)",
            "Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values ('2','有意向',65280)",
        });
        addLead("9", "引驻来人", "甲公司");
        addLead("10", "引驻来电", "");
        addLead("11", "中介来人", "");
        addLead("12", "自行开发", "丁公司");
        addLead("13", "别处来的", "戊公司");
        auto& screens = program.app.screens;
        screens.offer(Frm客户跟进信息分配::screenName,
                      [this] { return std::make_unique<Frm客户跟进信息分配>(program.app); });
        screens.offer(Frm客户跟进记录::screenName,
                      [this] { return std::make_unique<Frm客户跟进记录>(program.app); });
        program.enter();
    }

    void addLead(const std::string& no, const std::string& kind, const std::string& company) {
        program.db().execute(
            "Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,公司名称,客户姓名,媒体,登记日期) "
            "Values ('" +
            no + "','01','" + kind + "'," + (company.empty() ? "Null" : "'" + company + "'") +
            ",'陈先生','报纸,网络','2011-2-1')");
    }
    Frm客户跟进信息分配& assigning() { return open<Frm客户跟进信息分配>(); }
    Frm客户跟进记录& diary() { return open<Frm客户跟进记录>(); }
    template <class S>
    S& open() {
        const bool fresh = program.app.screens.loaded(S::screenName) == nullptr;
        auto& screen = program.app.screens.get<S>();
        if (fresh) screen.管理项目.pick("01 东塔");
        return screen;
    }
    template <class S>
    void choose(S& screen, const std::string& no) {
        TreeNode* node = screen.客户.find("D" + no);
        ASSERT_NE(node, nullptr) << no;
        screen.客户.click(*node);
    }
    void assign(const std::string& no, const std::string& person, const std::string& date) {
        choose(assigning(), no);
        assigning().选择组.pick("2 现场组");
        assigning().选择人员.pick(person);
        assigning().分配日期.type(date);
        assigning().确定.click();
    }
    /// A look at the diary of the user after the office has been chosen anew.
    std::vector<std::string> ownCustomers() {
        diary().管理项目.pick("01 东塔");
        std::vector<std::string> texts;
        for (const auto& node : diary().客户.roots()) texts.emplace_back(node->text());
        return texts;
    }
    void record(const std::string& day, const std::string& person, const std::string& state,
                const std::string& what) {
        diary().页签.click(0);
        diary().新增.click();
        diary().跟进日期.type(day);
        diary().跟进人员.pick(person);
        diary().跟进状态.pick(state);
        diary().跟进情况.type(what);
        diary().确定.click();
    }

    TestProgram program;
};

TEST_F(Pipeline, AllKindsOfLeadsAreShownWithTheirMark) {
    std::vector<std::string> texts;
    for (const auto& node : assigning().客户.roots()) texts.emplace_back(node->text());
    EXPECT_EQ(texts, (std::vector<std::string>{"（引驻来人）9 甲公司", "（引驻来电）10 陈先生",
                                               "（中介来人）11 ", "（自行开发）12 丁公司"}));
    ASSERT_EQ(assigning().选择组.count(), 2);  // the ended link is not offered, short codes come first
    EXPECT_EQ(assigning().选择组.items()[0].text, "2 现场组");
    assigning().选择组.pick("2 现场组");
    EXPECT_EQ(assigning().选择人员.items()[0].text, "E2 周平");
    assigning().选择组.pick("10 外拓组");
    EXPECT_EQ(assigning().选择人员.count(), 0);
}

TEST_F(Pipeline, AssigningFreezesTheLeadAndShowsWhenSelectedAgain) {
    assigning().确定.click();
    EXPECT_TRUE(program.desktop.messages.empty());
    assign("9", "E01 林晓", "");
    EXPECT_EQ(program.desktop.takeMessage(), "分配日期不能为空，请填写分配日期！");
    assign("9", "E01 林晓", "2011-3-5");
    EXPECT_EQ(program.desktop.takeMessage(), "任务分配成功！");
    EXPECT_EQ(assigning().是否分配.text(), "未分配");
    choose(assigning(), "9");
    EXPECT_EQ(assigning().是否分配.text(), "已分配");
    EXPECT_EQ(assigning().分配日期.text(), "2011-03-05");
    EXPECT_EQ(assigning().选择人员.text(), "E01 林晓");
    EXPECT_EQ(assigning().客户信息["媒体"].text(), "报纸,网络");
    EXPECT_EQ(
        program.rows("Select 登记编号,管理处代号,组代号,员工工号,分配日期,终止日期 From YZ_引驻客户分配"),
        std::vector<std::string>{"9|01|2|E01|2011-03-05|"});
    EXPECT_EQ(program.rows("Select 分配日期 From YZ_引驻客户信息 Where 登记编号='9'"),
              std::vector<std::string>{"2011-03-05"});

    assign("9", "E2 周平", "2011-3-6");
    EXPECT_EQ(program.desktop.messages.back().icon, Icon::information);
    EXPECT_EQ(program.desktop.takeMessage(), "已经为'9'分配为负责人，请核对相关信息！");
}

TEST_F(Pipeline, ADateThatIsNoneIsShownWithItsNumberAndAssignsNothing) {
    assign("9", "E01 林晓", "明天");
    ASSERT_EQ(program.desktop.messages.size(), 1U);
    EXPECT_TRUE(program.desktop.messages[0].text.starts_with("-2147217913 "));
    EXPECT_TRUE(program.rows("Select * From YZ_引驻客户分配").empty());
}

TEST_F(Pipeline, EndingKeepsTheDateOfTheLeadAndAllowsAnother) {
    assign("9", "E01 林晓", "2011-3-5");
    choose(assigning(), "9");
    program.desktop.messages.clear();
    assigning().终止.click();
    EXPECT_EQ(program.desktop.takeMessage(), "如果终止已经分配的记录，必须填写终止日期！");
    assigning().终止日期.type("2011/3/20");
    program.desktop.answers = {Answer::no, Answer::yes};
    assigning().终止.click();
    EXPECT_EQ(program.desktop.messages.back().title, "提醒");
    EXPECT_EQ(program.desktop.takeMessage(), "确定要终止登记编号为'9'所对应的分配信息吗？");
    EXPECT_EQ(program.rows("Select 终止日期 From YZ_引驻客户分配"), std::vector<std::string>{""});
    assigning().终止.click();
    EXPECT_EQ(program.rows("Select 终止日期 From YZ_引驻客户分配"), std::vector<std::string>{"2011-03-20"});
    EXPECT_EQ(program.rows("Select 分配日期 From YZ_引驻客户信息 Where 登记编号='9'"),
              std::vector<std::string>{"2011-03-05"});
    choose(assigning(), "9");
    EXPECT_EQ(assigning().是否分配.text(), "未分配");
    assign("9", "E2 周平", "2011-3-21");
    EXPECT_EQ(program.rows("Select 员工工号 From YZ_引驻客户分配 Where 终止日期 is Null"),
              std::vector<std::string>{"E2"});

    // A date that cannot be read ends nothing, and nothing is said.
    program.desktop.messages.clear();
    program.desktop.answers = {Answer::yes};
    choose(assigning(), "9");
    assigning().终止日期.type("不知道");
    assigning().终止.click();
    EXPECT_EQ(program.desktop.messages.size(), 1U);
    EXPECT_EQ(program.rows("Select 员工工号 From YZ_引驻客户分配 Where 终止日期 is Null").size(), 1U);
}

TEST_F(Pipeline, AnotherOfficeHasAnotherCustomerOfThatNumber) {
    program.run({"Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别) Values ('9','02','引驻来人')",
                 "Insert Into YZ_组对应管理项目设置 (组代号,管理处代号) Values ('2','02')"});
    assign("9", "E01 林晓", "2011-3-5");
    ownCustomers();
    choose(diary(), "9");
    record("2011-3-6", "E01 林晓", "1 初次联系", "");
    diary().跟进列表.click(1, 1);
    program.desktop.messages.clear();

    // The diary is left as it opened: neither a new entry nor a deletion has a customer.
    diary().管理项目.pick("02 西塔");
    EXPECT_EQ(diary().客户信息["登记编号"].text(), "");
    EXPECT_EQ(diary().业务员.text() + diary().跟进日期.text(), "");
    EXPECT_EQ(diary().跟进列表.rows(), 1);
    EXPECT_EQ(diary().页签.index(), 0);
    EXPECT_FALSE(diary().删除.enabled());
    record("2011-3-7", "E01 林晓", "1 初次联系", "");
    EXPECT_EQ(program.rows("Select * From YZ_引驻客户跟进记录").size(), 1U);

    // The assignment keeps its fields, and acts on nobody until a customer is selected.
    auto& screen = assigning();
    screen.管理项目.pick("02 西塔");
    screen.选择组.pick("2 现场组");
    screen.选择人员.pick("E2 周平");
    screen.终止日期.type("2011-3-20");
    screen.确定.click();
    screen.终止.click();
    EXPECT_TRUE(program.desktop.messages.empty());
    EXPECT_EQ(program.rows("Select 管理处代号,终止日期 From YZ_引驻客户分配"),
              std::vector<std::string>{"01|"});
}

TEST_F(Pipeline, TwoLeadsOfOneNumberAnswerToItBoth) {
    addLead("9", "引驻来人", "后到的公司");
    assigning().管理项目.pick("01 东塔");
    ASSERT_EQ(assigning().客户.roots().size(), 5U);
    TreeNode& second = *assigning().客户.roots()[1];
    EXPECT_EQ(second.text(), "（引驻来人）9 后到的公司");
    assigning().客户.click(second);
    EXPECT_EQ(assigning().客户信息["登记编号"].text(), "9");
}

TEST_F(Pipeline, AnAssignmentToATeamThatTheOfficeLostShowsItsDateOnly) {
    program.run(
        {"Insert Into YZ_引驻客户分配 (登记编号,管理处代号,组代号,员工工号,分配日期) Values "
         "('9','01','3','E01','2010-3-1')"});
    choose(assigning(), "9");
    EXPECT_FALSE(assigning().选择组.hasSelection());
    EXPECT_EQ(assigning().分配日期.text(), "2010-03-01");
    EXPECT_EQ(assigning().是否分配.text(), "已分配");
}

TEST_F(Pipeline, OneCalendarServesBothDates) {
    auto& screen = assigning();
    screen.分配日期.focused();
    EXPECT_EQ(screen.日历按钮.anchor(), &screen.分配日期);
    screen.日历按钮.click();
    EXPECT_TRUE(screen.日历.面板.isOpen());
    screen.终止日期.focused();
    screen.日历.日历.clickDay(DateTime(2011, 4, 2));
    EXPECT_EQ(screen.终止日期.text(), "2011/4/2");
    EXPECT_EQ(screen.分配日期.text(), "");
    EXPECT_FALSE(screen.日历.面板.isOpen());
    screen.日历按钮.click();
    screen.选择组.focused();
    EXPECT_FALSE(screen.日历.面板.isOpen());
}

TEST_F(Pipeline, TheDeskShowsOnlyOnesOwnCurrentCustomers) {
    assign("9", "E01 林晓", "2011-3-5");
    assign("10", "E2 周平", "2011-3-5");
    EXPECT_EQ(ownCustomers(), std::vector<std::string>{"（引驻来人）9 甲公司"});
    program.run({"Update YZ_引驻客户分配 Set 终止日期='2011-3-6' Where 登记编号='9'"});
    EXPECT_TRUE(ownCustomers().empty());
    EXPECT_EQ(diary().跟进人员.count(), 2);  // whoever has left is not offered
    EXPECT_EQ(diary().跟进状态.items()[1].colour, 65280);
}

TEST_F(Pipeline, TheDiaryIsWrittenChangedAndDeleted) {
    assign("9", "E01 林晓", "2011-3-5");
    ownCustomers();
    diary().确定.click();
    EXPECT_EQ(program.desktop.takeMessage(), "请输入日期！");
    choose(diary(), "9");
    EXPECT_EQ(diary().页签.index(), 0);
    EXPECT_EQ(diary().业务员.text(), "E01 林晓");
    EXPECT_EQ(diary().客户信息["登记日期"].text(), "2011-02-01");

    record("2011/3/7", "E2 周平", "2 有意向", "二访");
    record("2011-3-6", "E01 林晓", "1 初次联系", "");
    EXPECT_EQ(diary().页签.index(), 1);
    EXPECT_EQ(diary().新增.caption(), "新增");
    ASSERT_EQ(diary().跟进列表.rows(), 3);
    EXPECT_EQ(diary().跟进列表.text(1, 1), "2011-03-06");
    EXPECT_EQ(diary().跟进列表.text(2, 2), "周平");
    EXPECT_EQ(diary().跟进列表.cellColour(2, 5), 65280);
    EXPECT_EQ(diary().跟进列表.columnWidth(7), 0);
    EXPECT_EQ(program.rows("Select 跟进情况,预约日期 From YZ_引驻客户跟进记录 Where 跟进情况 is Null"),
              std::vector<std::string>{"|"});

    diary().跟进列表.click(2, 3);
    EXPECT_EQ(diary().页签.index(), 0);
    EXPECT_EQ(diary().跟进人员.text(), "E2 周平");
    EXPECT_EQ(diary().跟进状态.text(), "2 有意向");
    EXPECT_EQ(diary().颜色.colour(), 65280);
    diary().预约日期.type("2011-4-1");
    diary().确定.click();
    EXPECT_EQ(program.rows("Select 跟进日期,预约日期 From YZ_引驻客户跟进记录 Where 跟进人工号='E2'"),
              std::vector<std::string>{"2011-03-07|2011-04-01"});
    EXPECT_EQ(program.rows("Select * From YZ_引驻客户跟进记录").size(), 2U);

    diary().跟进列表.click(1, 0);
    EXPECT_TRUE(diary().删除.enabled());
    program.desktop.answers = {Answer::yes};
    diary().删除.click();
    EXPECT_EQ(program.desktop.takeMessage(), "确定要删除该信息吗？");
    EXPECT_EQ(program.rows("Select 跟进人工号 From YZ_引驻客户跟进记录"), std::vector<std::string>{"E2"});
    EXPECT_EQ(diary().跟进列表.rows(), 2);
    EXPECT_FALSE(diary().删除.enabled());
}

TEST_F(Pipeline, ADeletedStateHidesItsDiaryRowsWithoutLosingThem) {
    assign("9", "E01 林晓", "2011-3-5");
    ownCustomers();
    choose(diary(), "9");
    record("2011-3-6", "E01 林晓", "1 初次联系", "电话");
    program.run({"Delete From YZ_跟进状态设置 Where 状态编号='1'"});
    choose(diary(), "9");
    EXPECT_EQ(diary().跟进列表.rows(), 1);
    EXPECT_EQ(diary().页签.index(), 0);
    EXPECT_EQ(program.rows("Select * From YZ_引驻客户跟进记录").size(), 1U);
}

TEST_F(Pipeline, ADiaryDateThatIsNoneEndsTheSave) {
    assign("9", "E01 林晓", "2011-3-5");
    ownCustomers();
    choose(diary(), "9");
    EXPECT_THROW(record("前天", "E01 林晓", "1 初次联系", ""), RuntimeFailure);
    EXPECT_TRUE(program.rows("Select * From YZ_引驻客户跟进记录").empty());
}

TEST_F(Pipeline, TheCalendarMovesOnToTheNextField) {
    auto& screen = diary();
    bool movedOn = false;
    screen.跟进人员.focusAsked += [&] { movedOn = true; };
    screen.跟进日期.focused();
    EXPECT_TRUE(screen.跟进日期按钮.visible());
    EXPECT_FALSE(screen.预约日期按钮.visible());
    screen.跟进日期按钮.click();
    screen.日历.日历.clickDay(DateTime(2011, 3, 9));
    EXPECT_EQ(screen.跟进日期.text(), "2011/3/9");
    EXPECT_FALSE(screen.跟进日期按钮.visible());
    EXPECT_TRUE(movedOn);
}

}  // namespace
}  // namespace desk
