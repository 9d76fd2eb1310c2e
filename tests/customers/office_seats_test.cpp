#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "db/statement.h"
#include "seats.h"
#include "wire/server_fixture.h"

namespace desk {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int leadsOfARound = 3;

/// How long the seats work; one round each where nothing is said.
std::chrono::seconds workingTime() {
    const char* asked = std::getenv("SEATS_SECONDS");
    return std::chrono::seconds(asked != nullptr ? std::atoi(asked) : 0);
}

/// The seats of an office, on the database of one server.
class OfficeSeats : public wire::ServedOffice {
  protected:
    OfficeSeats() {
        program.db().open("Initial Catalog='" + folder + "/office';Data Source='(embedded)'",
                          std::chrono::seconds(30));
        addOfficesAndDictionaries(program);
        addTeam(program);
    }

    /// Registers leads, hands them out, and records a visit to each; in the end tells how many.
    std::string work(const std::string& seat) const {
        const auto office =
            "User ID=sa;Password=Secret;Initial Catalog=office;Data Source='" + server.dataSource() + "'";
        const auto end = Clock::now() + workingTime();
        return seated(office, [&](TestProgram& mine) {
            int leads = 0;
            do {
                workOn(mine, seat, leads);
                leads += leadsOfARound;
            } while (Clock::now() < end);
            std::ofstream(folder + "/" + seat) << leads;
        });
    }
    static void workOn(TestProgram& mine, const std::string& seat, int first) {
        auto& screens = mine.app.screens;
        std::vector<std::string> numbers;
        for (int i = 0; i < leadsOfARound; ++i) numbers.push_back(seat + std::to_string(first + i));
        auto& registration = screens.get<Frm引驻客户信息登记>();
        registration.来人.管理项目.pick("01 东塔");
        for (const auto& each : numbers) registerLead(mine, registration.来人, each + "公司", each);
        screens.unload(registration);
        auto& assignment = screens.get<Frm客户跟进信息分配>();
        assignment.管理项目.pick("01 东塔");
        for (const auto& each : numbers) assignLead(mine, assignment, each);
        screens.unload(assignment);
        auto& diary = screens.get<Frm客户跟进记录>();
        diary.管理项目.pick("01 东塔");
        for (const auto& each : numbers) recordVisit(diary, each);
        screens.unload(diary);
    }

    TestProgram program;
};

TEST_F(OfficeSeats, LoseNothingWhileTheyWorkOnOneServer) {
    const std::vector<std::string> names = {"甲", "乙", "丙", "丁", "戊", "己", "庚", "辛"};
    std::vector<Seat> seats;
    for (const auto& name : names) seats.push_back([name, this] { return work(name); });
    runSeats(seats);

    int all = 0;
    for (const auto& name : names) {
        int told = 0;
        std::ifstream(folder + "/" + name) >> told;
        EXPECT_GE(told, leadsOfARound) << name;
        all += told;
        EXPECT_EQ(program.rows(sql("Select Count(*) From YZ_引驻客户信息 Where 登记编号 Like '{}%' And "
                                   "分配日期='2011-3-5' And 公司名称 Like '{}%公司'",
                                   name, name)),
                  std::vector<std::string>{std::to_string(told)});
    }
    RecordProperty("leads", all);
    for (const std::string table : {"YZ_引驻客户信息", "YZ_引驻客户分配", "YZ_引驻客户跟进记录"}) {
        const std::vector<std::string> count = {std::to_string(all)};
        EXPECT_EQ(program.rows("Select Count(*) From " + table), count) << table;
        EXPECT_EQ(program.rows("Select Count(*) From (Select Distinct 登记编号 From " + table + ") A"), count)
            << table;
    }
}

}  // namespace
}  // namespace desk
