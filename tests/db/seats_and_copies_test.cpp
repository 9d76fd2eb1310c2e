#include <gtest/gtest.h>

#include "database_file.h"
#include "db/embedded/embedded.h"
#include "processes.h"

namespace desk {
namespace {

class Backup : public DatabaseFile {
  protected:
    Backup() { embedded::createDatabase(path_); }

    std::int64_t teamsIn(const std::string& path) {
        auto connection = opened(path);
        return Recordset(connection, "Select Count(*) From YZ_组表")[0].integer();
    }
};

TEST_F(Backup, HoldsWhatIsWrittenAtThatMomentWhileSeatsWork) {
    const auto copies = {inFolder("一.db"), inFolder("二.db"), inFolder("三.db")};
    const auto* copy = copies.begin();
    auto seat = opened();
    seat.execute("Insert Into YZ_组表 (组代号) Values ('01'),('02')");
    Recordset reading(seat, "Select * From YZ_组表");
    embedded::backup(path_, copy[0], patience);
    seat.begin();
    seat.execute("Insert Into YZ_组表 (组代号) Values ('03')");
    embedded::backup(path_, copy[1], patience);
    seat.commit();
    embedded::backup(path_, copy[2], patience);
    EXPECT_EQ(teamsIn(copy[0]), 2);
    EXPECT_EQ(teamsIn(copy[1]), 2);
    EXPECT_EQ(teamsIn(copy[2]), 3);
    EXPECT_EQ(teamsIn(path_), 3);
}

TEST_F(Backup, NeverWritesOverAFileAndLeavesNothingHalf) {
    const auto whole = bytesOf(path_);
    const auto damaged = inFolder("坏.db");
    const auto middle = whole.size() / 2;
    writeBytes(damaged,
               whole.substr(0, middle) + std::string(3 * page, 'x') + whole.substr(middle + 3 * page));
    const std::pair<std::string, std::string> failing[] = {{path_, path_},
                                                           {inFolder("没有.db"), inFolder("一.db")},
                                                           {path_, inFolder("没有/一.db")},
                                                           {damaged, inFolder("一.db")}};
    for (const auto& [from, to] : failing)
        EXPECT_EQ(failureOf([&] { embedded::backup(from, to, patience); }), failure::unspecified)
            << from << " " << to;
    EXPECT_EQ(otherFiles(), std::vector{damaged});
    EXPECT_EQ(bytesOf(path_), whole);
}

constexpr auto highest = "SELECT MAX(流水号) AS 流水号 From YZ_引驻客户信息 Where 管理处代号='01'";

/// Registers a lead the way a seat does: the highest number, and a new row with the next one.
void registerLead(Connection& connection, const std::string& seat) {
    const auto serial = Recordset(connection, highest)[0].integer() + 1;
    Recordset lead(connection, "Select * From YZ_引驻客户信息 Where 1=0", Rows::updatable);
    lead.addNew();
    lead["管理处代号"] = "01";
    lead["登记编号"] = "2011-" + std::to_string(serial);
    lead["流水号"] = serial;
    lead["业务员"] = seat;
    lead.update();
}

using TwoSeats = DatabaseFile;

TEST_F(TwoSeats, RegisterAtTheSameTimeWithoutLosingARow) {
    constexpr int each = 200;
    embedded::createDatabase(path_);
    std::vector<pid_t> seats;
    for (const auto* name : {"甲", "乙"})
        seats.push_back(inProcess([&] {
            auto connection = opened();
            for (int i = 0; i < each; ++i) registerLead(connection, name);
        }));
    for (const pid_t seat : seats) EXPECT_EQ(endOf(seat), 0);

    auto connection = opened();
    for (const auto* name : {"甲", "乙"}) {
        Recordset rows(connection, sql("Select Count(*) From YZ_引驻客户信息 Where 业务员='{}'", name));
        EXPECT_EQ(rows[0].integer(), each) << name;
    }
    // Nothing keeps two seats from drawing the same number, but most draw one of their own.
    const auto last = Recordset(connection, highest)[0].integer();
    EXPECT_LE(last, 2 * each);
    EXPECT_GE(last, each);
}

}  // namespace
}  // namespace desk
