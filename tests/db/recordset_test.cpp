#include "db/recordset.h"

#include <gtest/gtest.h>

#include "filled_database.h"

namespace desk {
namespace {

class RecordsetTest : public testing::Test, protected FilledDatabase {};

TEST_F(RecordsetTest, AFailureNamesItsStatementButNoPassword) {
    const auto statementOf = [](const std::function<void()>& work) {
        try {
            work();
        } catch (const RuntimeFailure& failure) {
            return failure.statement();
        }
        return std::string("no failure");
    };
    EXPECT_EQ(statementOf([&] { connection.execute("Delete From 没有"); }), "Delete From 没有");
    EXPECT_EQ(statementOf([&] { Recordset(connection, "Select * From 没有"); }), "Select * From 没有");
    const std::string teams = "Select * From YZ_组表";
    Recordset rows(connection, teams, Rows::updatable);
    rows.addNew();
    EXPECT_EQ(statementOf([&] {
                  rows["组代号"] = Value(std::string(5000, 'x'));
                  rows.update();
                  rows.addNew();
                  rows["组代号"] = Value(std::string(5000, 'x'));
                  rows.update();
              }),
              teams);
    EXPECT_EQ(
        statementOf([&] { anyRow(connection, "Select * From 无 Where 工号='1' and 帐号密码='a''b' "); }),
        "Select * From 无 Where 工号='…' ");
    EXPECT_EQ(statementOf([&] { connection.execute("Update 无 Set 帐号密码='secret"); }),
              "Update 无 Set 帐号密码=");
}

TEST_F(RecordsetTest, OutlivesItsConnection) {
    Recordset rows(connection, "Select GYD_DH From 设置管理处 Order By GYD_DH");
    connection = Connection();
    rows.moveNext();
    EXPECT_EQ(rows[0].text(), "10");
    EXPECT_EQ(failureOf([&] { anyRow(connection, "Select 1"); }), failure::closedConnection);
}

}  // namespace
}  // namespace desk
