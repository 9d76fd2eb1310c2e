#include <gtest/gtest.h>

#include <algorithm>

#include "database_file.h"
#include "db/embedded/embedded.h"
#include "db/embedded/translation.h"
#include "schema/definition.h"

namespace desk {
namespace {

class Plans : public testing::Test {
  protected:
    embedded::Sqlite sqlite_{":memory:", embedded::Sqlite::Missing::isCreated, std::chrono::seconds(1)};

    Plans() {
        for (const auto& statement : schema::definition(schema::Dialect::sqlite)) sqlite_.run(statement);
    }

    /// How SQLite goes about a statement, a line a step.
    std::vector<std::string> planOf(const std::string& statement) {
        std::vector<std::string> steps;
        auto plan =
            sqlite_.prepare("EXPLAIN QUERY PLAN " + embedded::translate(statement, Rows::forwardOnly).sql);
        while (plan.step()) steps.emplace_back(plan.text(3));
        return steps;
    }
};

/// The name that follows `step` at the beginning of a line of a plan.
std::string nameBehind(const std::string& line, const std::string& step) {
    if (!line.starts_with(step)) return {};
    const auto rest = line.substr(step.size());
    return rest.substr(0, rest.find(' '));
}

/// Every join finds an index in the file, and what grows with the business is never read from end to end but
/// where every row is asked for.
TEST_F(Plans, HaveAnIndexForEveryStatement) {
    const auto growing = split(
        "YZ_引驻客户信息,YZ_引驻客户分配,YZ_引驻客户跟进记录,YZ_意向书信息,YZ_意向书单元信息,"
        "YZ_意向书审批情况,YZ_意向金收款,票据,票据开票数据,报销单表,报销单明细,报销附件,"
        "岗位员工new,岗位信息new,职能部门对应管理项目设置",
        ',');
    const auto grows = [&](const std::string& table) {
        return std::find(growing.begin(), growing.end(), table) != growing.end();
    };
    for (const auto& [line, statement, rows] : stepsOf("statements.txt")) {
        const bool asksForNothing = statement.find("1=0") != std::string::npos;
        const bool asksForAll = statement.starts_with("SELECT 管理处代号, 登记编号, MAX(跟进日期)") ||
                                statement.starts_with("SELECT DISTINCT  YZ_引驻客户跟进记录.ID");
        std::vector<std::string> plan;
        try {
            plan = planOf(statement);
        } catch (const RuntimeFailure&) {
            continue;  // one of those that the system sends though they fail
        }
        for (const auto& step : plan) {
            const bool makesAnIndex = step.find("AUTOMATIC") != std::string::npos;
            const auto shown = step + "\n" + statement;
            EXPECT_FALSE(makesAnIndex && schema::table(nameBehind(step, "SEARCH ")) != nullptr) << shown;
            EXPECT_TRUE(asksForNothing || asksForAll || !grows(nameBehind(step, "SCAN "))) << shown;
        }
    }
}

TEST_F(Plans, FindALetterByTheCopyOfItsKey) {
    for (const auto* statement : {"Select * From YZ_意向书信息 Where 意向书ID=1",
                                  "Update YZ_意向书信息 Set 流转通过=1 Where 意向书ID='1'",
                                  "Select b.ID From YZ_意向书审批情况 b,YZ_意向书信息 a Where b.ID=2 And "
                                  "a.意向书ID=b.意向书ID"})
        EXPECT_EQ(planOf(statement).back().find("SCAN"), std::string::npos) << planOf(statement).back();
}

using Statistics = DatabaseFile;

/// Without statistics an office of a person without leads is read whole.
TEST_F(Statistics, FollowTheRowsThatAreWritten) {
    embedded::createDatabase(path_);
    auto connection = opened();
    const auto known = [&] {
        const auto sqlite = bare(path_);
        auto found = sqlite.prepare("SELECT 1 FROM sqlite_schema WHERE name='sqlite_stat1'");
        if (!found.step()) return std::string();
        auto rows = sqlite.prepare(
            "SELECT CAST(stat AS INTEGER) FROM sqlite_stat1 WHERE tbl='YZ_组人员设置' ORDER BY 1 LIMIT 1");
        return rows.step() ? std::string(rows.text(0)) : std::string();
    };
    const auto add = [&](int rows) {
        connection.begin();
        for (int i = 0; i < rows; ++i)
            connection.execute(sql("Insert Into YZ_组人员设置 (组代号,员工工号) Values ('01','E{}')", i));
        connection.commit();
        return known();
    };
    EXPECT_EQ(add(900), "");
    EXPECT_EQ(add(100), "1000");
    EXPECT_EQ(add(1000), "1000");
    EXPECT_EQ(add(2500), "4500");

    // A seat that opens a file which another program has filled does not wait for many writes.
    connection = Connection();
    const auto writer = bare(path_);
    writer.run("DELETE FROM \"YZ_组人员设置\" WHERE _row>300");
    writer.run("DELETE FROM sqlite_stat1");
    EXPECT_EQ(known(), "");
    // Nor does it wait for a seat that writes.
    writer.run("BEGIN IMMEDIATE");
    connection = opened(std::chrono::seconds(600));
    EXPECT_TRUE(anyRow(connection, "Select * From YZ_组人员设置"));
    writer.run("COMMIT");
    EXPECT_EQ(known(), "");
    connection = opened();
    EXPECT_EQ(known(), "300");
}

}  // namespace
}  // namespace desk
