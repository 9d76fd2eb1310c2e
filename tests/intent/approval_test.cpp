#include "intent/approval.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "base/failure.h"
#include "db/statement.h"
#include "support/test_program.h"

namespace desk {
namespace {

/// Letter 1 of the office 01 in approval; the session holds the position 0101 of department 01. A path of
/// the office asks 0101, 0102 and 0103 in turn.
class Approval : public testing::Test {
  protected:
    Approval() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
        program.run({
            "Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('01','招商部')",
            "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0101','招商专员','01')",
            "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0102','主管','01')",
            "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号) Values ('0103','经理','01')",
            "Insert Into YZ_意向书审批路径设置 (审批路径代号,管理处代号,单级流转) Values ('L','01',0)",
            "Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,提交日期) Values "
            "('1','01','甲公司','2011-3-1')",
            "Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方,提交日期) Values "
            "('2','01','乙公司','2011-3-1')",
            "Insert Into YZ_意向书审批情况 (意向书ID,环节序号,部门代号,岗位代号) Values (2,0,'01','0199')",
        });
        program.enter();
        program.app.screens.offer<Frm意向书审批>(program.app);
    }

    void addStep(int number, const std::string& position) {
        program.db().execute(
            sql("Insert Into YZ_意向书审批路径 (意向书审批ID,审批环节序号,部门代号,岗位代号) "
                "Values (1,{},'01','{}')",
                number, position));
    }
    /// An approval that nobody has given yet.
    void addOpen(int step, const std::string& position, const std::string& department = "01") {
        program.db().execute(
            sql("Insert Into YZ_意向书审批情况 (意向书ID,环节序号,部门代号,岗位代号) Values (1,{},'{}','{}')",
                step, department, position));
    }
    void addClosed(int step, const std::string& position, bool agreed) {
        program.db().execute(
            sql("Insert Into YZ_意向书审批情况 "
                "(意向书ID,环节序号,部门代号,岗位代号,审批日期,同意,审批人,审批内容) Values "
                "(1,{},'01','{}','2011-3-2 9:00:00',{},'先',' 早 ')",
                step, position, agreed ? 1 : 0));
    }
    Frm意向书审批& open() {
        program.app.screens.open(Frm意向书审批::screenName);
        return program.app.screens.get<Frm意向书审批>();
    }
    /// The desk of whoever holds that position, with the letter on it.
    Frm意向书审批& openAt(const std::string& position) {
        if (auto* shown = program.app.screens.loaded(Frm意向书审批::screenName))
            program.app.screens.unload(*shown);
        program.app.session.登录岗位代号 = position;
        return select(open());
    }
    Frm意向书审批& select(Frm意向书审批& screen) {
        screen.待审批.click(*screen.待审批.find("YM1"));
        return screen;
    }
    /// "registered", "passed", ...: as the columns of the letter tell it.
    std::string stateOf(int letter) {
        const auto rows =
            program.rows(sql("Select 流转通过,流转结束日期 From YZ_意向书信息 Where ID={}", letter));
        if (rows.front() == "|") return "in approval";
        if (rows.front() == "1|2011-03-05 14:05:00") return "passed";
        if (rows.front() == "0|2011-03-05 14:05:00") return "refused";
        return rows.front();
    }
    std::vector<std::string> approvals() {
        return program.rows(
            "Select 环节序号,岗位代号,同意 From YZ_意向书审批情况 Where 意向书ID=1 Order By ID");
    }

    TestProgram program;
};

struct Row {
    const char* name;
    int flow;           ///< the number of the approvals' step
    bool agrees;        ///< the decision of the session
    int open;           ///< approvals that others still owe
    int refusals;       ///< approvals that others have refused
    bool stepIsLeft;    ///< whether the path goes on
    const char* state;  ///< of the letter afterwards
    int approvals;      ///< afterwards
};

class LetterAfterDecision : public Approval, public testing::WithParamInterface<Row> {};

TEST_P(LetterAfterDecision, IsInTheStateThatTheTableTells) {
    const Row& row = GetParam();
    addOpen(row.flow, "0101");
    for (int i = 0; i < row.open; ++i) addOpen(row.flow, "0199");
    for (int i = 0; i < row.refusals; ++i) addClosed(row.flow, "0198", false);
    if (row.flow == 0) addClosed(row.flow, "0197", true);
    if (row.stepIsLeft) addStep(1 + row.open + row.refusals + row.flow, "0102");
    auto& screen = select(open());
    (row.agrees ? screen.同意 : screen.不同意).click();
    EXPECT_EQ(stateOf(1), row.state);
    EXPECT_EQ(stateOf(2), "in approval");
    EXPECT_EQ(approvals().front(), fmt::format("{}|0101|{}", row.flow, row.agrees ? 1 : 0));
    EXPECT_EQ(approvals().size(), static_cast<std::size_t>(row.approvals));
    EXPECT_TRUE(screen.待审批.roots().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Flow, LetterAfterDecision,
    testing::Values(Row{"AtOnceAgreedOthersOpen", 0, true, 1, 0, true, "in approval", 3},
                    Row{"AtOnceAgreedOthersOpenOneRefused", 0, true, 1, 1, true, "in approval", 4},
                    Row{"AtOnceAgreedByAll", 0, true, 0, 0, true, "passed", 2},
                    Row{"AtOnceAgreedLastOneRefused", 0, true, 0, 1, true, "refused", 3},
                    Row{"AtOnceRefusedOthersOpen", 0, false, 2, 0, true, "in approval", 4},
                    Row{"AtOnceRefusedLast", 0, false, 0, 0, true, "refused", 2},
                    Row{"AtOnceRefusedLastOfTwo", 0, false, 0, 1, true, "refused", 3},
                    Row{"InTurnAgreedStepLeft", 1, true, 0, 0, true, "in approval", 2},
                    Row{"InTurnAgreedNoStepLeft", 1, true, 0, 0, false, "passed", 1},
                    Row{"InTurnAgreedThoughOneRefused", 1, true, 0, 1, false, "passed", 2},
                    Row{"InTurnRefused", 1, false, 0, 0, true, "refused", 1},
                    Row{"InTurnRefusedOthersOpen", 1, false, 1, 0, true, "refused", 2}),
    [](const auto& named) { return named.param.name; });

TEST_F(Approval, GoesFromStepToStepOfThePathAsItStands) {
    addStep(1, "0101");
    addStep(2, "0102");
    addOpen(1, "0101");
    openAt("0101").同意.click();
    EXPECT_EQ(approvals(), (std::vector<std::string>{"1|0101|1", "2|0102|"}));
    // The path grows meanwhile; that it is one for all at once from now on does not matter.
    addStep(3, "0103");
    program.run({"Update YZ_意向书审批路径设置 Set 单级流转=1"});
    openAt("0102").同意.click();
    EXPECT_EQ(approvals(), (std::vector<std::string>{"1|0101|1", "2|0102|1", "3|0103|"}));
    EXPECT_EQ(stateOf(1), "in approval");
    openAt("0103").同意.click();
    EXPECT_EQ(stateOf(1), "passed");
}

TEST_F(Approval, AsksOneStepTwiceWhereThePathHasAGap) {
    addStep(1, "0101");
    addStep(3, "0102");
    addStep(4, "0103");
    addOpen(1, "0101");
    for (const char* position : {"0101", "0102", "0102", "0103"}) {
        EXPECT_EQ(stateOf(1), "in approval");
        openAt(position).同意.click();
    }
    EXPECT_EQ(approvals(), (std::vector<std::string>{"1|0101|1", "2|0102|1", "3|0102|1", "4|0103|1"}));
    EXPECT_EQ(stateOf(1), "passed");
}

TEST_F(Approval, AsksAStepAgainWhenTheListLacksAnApproval) {
    addStep(1, "0101");
    addStep(2, "0102");
    addClosed(1, "0199", true);  // a position that has gone
    addOpen(2, "0101");
    openAt("0101").同意.click();
    EXPECT_EQ(approvals().back(), "2|0102|");
}

TEST_F(Approval, OfADepartmentThatIsNotAskedChangesNothingButTheFlowGoesOn) {
    addOpen(0, "0101", "02");
    addStep(1, "0102");
    auto& screen = select(open());
    screen.同意.click();
    EXPECT_EQ(approvals(), (std::vector<std::string>{"0|0101|"}));
    EXPECT_EQ(stateOf(1), "in approval");
    program.run({"Update YZ_意向书审批情况 Set 环节序号=1"});
    openAt("0101").不同意.click();
    EXPECT_EQ(approvals(), (std::vector<std::string>{"1|0101|"}));
    EXPECT_EQ(stateOf(1), "refused");
}

TEST_F(Approval, RewritesTheEarlierDecisionOfAPositionThatIsAskedTwice) {
    addClosed(1, "0101", false);
    addOpen(2, "0101");
    select(open()).同意.click();
    EXPECT_EQ(approvals(), (std::vector<std::string>{"1|0101|1", "2|0101|1"}));
}

TEST_F(Approval, OfALetterThatIsSubmittedTwiceCannotBeListed) {
    addOpen(1, "0101");
    addOpen(1, "0101");
    try {
        open();
        FAIL() << "two nodes of one key";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), 35602);
    }
}

TEST_F(Approval, ComparesThePositionAsANumber) {
    program.app.session.登录岗位代号 = "101";
    addOpen(1, "0101");
    EXPECT_NE(open().待审批.find("YM1"), nullptr);
}

TEST_F(Approval, DoesNotOpenForAPositionThatIsNoNumber) {
    for (const char* position : {"", "A1"}) {
        program.app.session.登录岗位代号 = position;
        try {
            open();
            ADD_FAILURE() << position;
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.number(), -2147217900);
        }
    }
}

TEST_F(Approval, LeavesTheApprovalClosedWhenTheLetterCannotBeEnded) {
    addOpen(0, "0101");
    auto& screen = select(open());
    program.fault.number = -2147217900;
    program.fault.in = 5;
    EXPECT_THROW(screen.同意.click(), RuntimeFailure);
    program.fault.in = 0;
    EXPECT_EQ(approvals().front(), "0|0101|1");
    EXPECT_EQ(stateOf(1), "in approval");
    EXPECT_NE(screen.待审批.find("YM1"), nullptr);
}

TEST_F(Approval, ActsOnlyOnALetterThatIsShown) {
    addOpen(1, "0101");
    auto& screen = open();
    for (const bool first : {true, false}) {
        const auto statements = program.fault.statements;
        for (Button* button : {&screen.同意, &screen.不同意, &screen.保存审批意见, &screen.他人审批情况})
            button->click();
        EXPECT_EQ(program.fault.statements, statements);
        EXPECT_FALSE(screen.他人面板.isOpen());
        if (!first) break;
        select(screen);
        EXPECT_EQ(screen.信息.id(), "1");
        screen.待审批.click(*screen.待审批.roots().front());
    }
    EXPECT_EQ(approvals(), (std::vector<std::string>{"1|0101|"}));
}

}  // namespace
}  // namespace desk
