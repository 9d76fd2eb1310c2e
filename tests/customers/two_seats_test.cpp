#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>

#include "db/embedded/embedded.h"
#include "seats.h"
#include "wire/process/engine_choice.h"

namespace desk {
namespace {

constexpr int leadsPerSeat = 100;

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

}  // namespace
}  // namespace desk
