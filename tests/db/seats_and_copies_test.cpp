#include <gtest/gtest.h>

#include <filesystem>

#include "db/embedded/embedded.h"
#include "filled_database.h"
#include "seat_process.h"
#include "temporary_folder.h"

namespace desk {
namespace {

constexpr std::chrono::seconds patience{30};

class Backup : public testing::Test {
  protected:
    Backup() { embedded::createDatabase(path_); }

    Connection opened(const std::string& path) {
        Connection connection;
        connection.open(fileConnection(path), patience);
        return connection;
    }

    std::int64_t teamsIn(const std::string& path) {
        auto connection = opened(path);
        return Recordset(connection, "Select Count(*) From YZ_组表")[0].integer();
    }

    TemporaryFolder folder_;
    const std::string path_ = folder_.path("台账.db");
};

TEST_F(Backup, HoldsWhatIsWrittenAtThatMomentWhileSeatsWork) {
    auto seat = opened(path_);
    seat.execute("Insert Into YZ_组表 (组代号) Values ('01'),('02')");
    Recordset reading(seat, "Select * From YZ_组表");
    embedded::backup(path_, folder_.path("一.db"), patience);
    seat.begin();
    seat.execute("Insert Into YZ_组表 (组代号) Values ('03')");
    embedded::backup(path_, folder_.path("二.db"), patience);
    seat.commit();
    embedded::backup(path_, folder_.path("三.db"), patience);
    EXPECT_EQ(teamsIn(folder_.path("一.db")), 2);
    EXPECT_EQ(teamsIn(folder_.path("二.db")), 2);
    EXPECT_EQ(teamsIn(folder_.path("三.db")), 3);
    EXPECT_EQ(teamsIn(path_), 3);
}

TEST_F(Backup, NeverWritesOverAFileAndLeavesNothingHalf) {
    const auto fails = [&](const std::string& from, const std::string& to) {
        return failureOf([&] { embedded::backup(from, to, patience); }) == failure::unspecified;
    };
    const auto whole = bytesOf(path_);
    EXPECT_TRUE(fails(path_, path_));
    EXPECT_TRUE(fails(folder_.path("没有.db"), folder_.path("一.db")));
    EXPECT_TRUE(fails(path_, folder_.path("没有/一.db")));
    auto damaged = whole;
    for (std::size_t i = damaged.size() / 2; i < damaged.size() / 2 + 3 * 4096; ++i)
        damaged[i] = static_cast<char>(i * 7);
    writeBytes(folder_.path("坏.db"), damaged);
    EXPECT_TRUE(fails(folder_.path("坏.db"), folder_.path("一.db")));
    const std::filesystem::directory_iterator entries(folder_.path(""));
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 2);
    EXPECT_EQ(bytesOf(path_), whole);
}

TEST(TwoSeats, RegisterAtTheSameTimeWithoutLosingARow) {
    constexpr int each = 200;
    const TemporaryFolder folder;
    const auto path = folder.path("seats.db");
    embedded::createDatabase(path);
    const auto first = startSeat(path, "甲", each);
    const auto second = startSeat(path, "乙", each);
    ASSERT_GT(first, 0);
    ASSERT_GT(second, 0);
    EXPECT_EQ(exitCode(first), 0);
    EXPECT_EQ(exitCode(second), 0);

    Connection connection;
    connection.open(fileConnection(path), std::chrono::seconds(5));
    for (const auto* seat : {"甲", "乙"}) {
        Recordset rows(connection, sql("Select Count(*) From YZ_引驻客户信息 Where 业务员='{}'", seat));
        EXPECT_EQ(rows[0].integer(), each) << seat;
    }
    // Nothing keeps two seats from drawing the same number, but most draw one of their own.
    Recordset highest(connection, "SELECT MAX(流水号) AS 流水号 From YZ_引驻客户信息 Where 管理处代号='01'");
    EXPECT_LE(highest[0].integer(), 2 * each);
    EXPECT_GE(highest[0].integer(), each);
}

}  // namespace
}  // namespace desk
