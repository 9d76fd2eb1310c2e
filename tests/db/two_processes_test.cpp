#include <gtest/gtest.h>

#include "db/embedded/embedded.h"
#include "filled_database.h"
#include "seat_process.h"
#include "temporary_folder.h"

namespace desk {
namespace {

TEST(TwoSeats, RegisterAtTheSameTimeWithoutLosingARow) {
    constexpr int each = 1000;
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

TEST(TwoSeats, WaitForEachOtherNoLongerThanTheirTimeOut) {
    const TemporaryFolder folder;
    const auto path = folder.path("seats.db");
    embedded::createDatabase(path);
    Connection writer;
    Connection waiter;
    writer.open(fileConnection(path), std::chrono::seconds(5));
    waiter.open(fileConnection(path), std::chrono::seconds(1));
    writer.begin();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(failureOf([&] { waiter.execute("Delete From YZ_组表"); }), failure::timedOut);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(waiter.execute("Select 1"), 0);
    writer.commit();
    EXPECT_EQ(waiter.execute("Insert Into YZ_组表 (组代号) Values ('01')"), 1);
}

}  // namespace
}  // namespace desk
