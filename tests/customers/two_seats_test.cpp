#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>

#include "db/embedded/embedded.h"
#include "db/statement.h"
#include "seats.h"
#include "wire/process/engine_choice.h"

namespace desk {
namespace {

constexpr int leadsPerSeat = 100;
constexpr int pipelineLeads = 100;

/// A database file that goes with the test.
class TwoSeats : public testing::Test {
  protected:
    TwoSeats() {
        std::remove(path.c_str());
        embedded::createDatabase(path);
        program.db().open(database, std::chrono::seconds(30));
        addOfficesAndDictionaries(program);
    }
    ~TwoSeats() override { std::remove(path.c_str()); }

    /// Registers leads one after the other, each with a number that it draws.
    Seat registers(const std::string& seat) const {
        return [seat, this] {
            return seated(database, [&](TestProgram& mine) {
                auto& page = mine.app.screens.get<Frm引驻客户信息登记>().来人;
                page.管理项目.pick("01 东塔");
                page.采用自动编号.click();
                for (int i = 0; i < leadsPerSeat; ++i) registerLead(mine, page, seat + std::to_string(i));
            });
        };
    }

    const std::string path = testing::TempDir() + "two_seats_" + std::to_string(::getpid()) + ".db";
    const std::string database = testDatabaseIn(path);
    TestProgram program;
};

TEST_F(TwoSeats, RegisterAtTheSameTimeAndLoseNothing) {
    runSeats({registers("甲"), registers("乙")});
    EXPECT_EQ(program.rows("Select Count(*) AS SL From YZ_引驻客户信息"),
              std::vector<std::string>{std::to_string(2 * leadsPerSeat)});
    EXPECT_EQ(program.rows("Select Count(*) AS SL From (Select Distinct 公司名称 From YZ_引驻客户信息) A"),
              std::vector<std::string>{std::to_string(2 * leadsPerSeat)});
}

TEST_F(TwoSeats, OneAssignsWhileTheOtherRecords) {
    addTeam(program);
    for (int i = 0; i < 2 * pipelineLeads; ++i)
        program.db().execute(
            sql("Insert Into YZ_引驻客户信息 (登记编号,管理处代号,客源类别,公司名称) Values "
                "('{}','01','引驻来人','公司')",
                i));
    for (int i = 0; i < pipelineLeads; ++i)
        program.db().execute(
            sql("Insert Into YZ_引驻客户分配 (登记编号,管理处代号,组代号,员工工号,分配日期) "
                "Values ('{}','01','2','E01','2011-3-1')",
                i));
    const auto assigns = [](TestProgram& mine) {
        auto& screen = mine.app.screens.get<Frm客户跟进信息分配>();
        screen.管理项目.pick("01 东塔");
        for (int i = pipelineLeads; i < 2 * pipelineLeads; ++i) assignLead(mine, screen, std::to_string(i));
    };
    const auto records = [](TestProgram& mine) {
        auto& screen = mine.app.screens.get<Frm客户跟进记录>();
        screen.管理项目.pick("01 东塔");
        for (int i = 0; i < pipelineLeads; ++i) recordVisit(screen, std::to_string(i));
    };
    runSeats({[&] { return seated(database, assigns); }, [&] { return seated(database, records); }});
    EXPECT_EQ(program.rows("Select Count(*) AS SL From YZ_引驻客户分配"),
              std::vector<std::string>{std::to_string(2 * pipelineLeads)});
    EXPECT_EQ(program.rows("Select Count(*) AS SL From YZ_引驻客户信息 Where 分配日期='2011-3-5'"),
              std::vector<std::string>{std::to_string(pipelineLeads)});
    EXPECT_EQ(
        program.rows("Select Count(*) AS SL From (Select Distinct 登记编号 From YZ_引驻客户跟进记录) A"),
        std::vector<std::string>{std::to_string(pipelineLeads)});
}

}  // namespace
}  // namespace desk
