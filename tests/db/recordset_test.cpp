#include "db/recordset.h"

#include <gtest/gtest.h>

#include "filled_database.h"

namespace desk {
namespace {

class RecordsetTest : public testing::Test, protected FilledDatabase {};

TEST_F(RecordsetTest, SeesEachRowOnce) {
    Recordset offices(connection, "Select GYD_DH,GYD_Name From 设置管理处 Order By len(GYD_DH),GYD_DH");
    std::string seen;
    for (; !offices.atEnd(); offices.moveNext()) seen += offices["gyd_dh"].text() + offices[1].text() + " ";
    EXPECT_EQ(seen, "2西塔 01东塔 10裙楼 ");
    EXPECT_EQ(failureOf([&] { offices[0].text(); }), failure::noCurrentRow);
    EXPECT_EQ(failureOf([&] { offices.moveNext(); }), failure::noCurrentRow);
    EXPECT_TRUE(Recordset(connection, "Select * From 设置管理处 Where 1=0").atEnd());
    EXPECT_TRUE(anyRow(connection, "Select * From 设置管理处"));
    EXPECT_FALSE(anyRow(connection, "Select * From 设置管理处 Where GYD_DH='99'"));
}

TEST_F(RecordsetTest, KnowsItsColumns) {
    Recordset rows(
        connection,
        "Select a.ID,b.ID,Count(*) As n From YZ_意向书信息 a,YZ_意向书审批路径 b Group By a.ID,b.ID");
    EXPECT_EQ(rows.columnCount(), 3);
    EXPECT_EQ(rows.columnName(2), "n");
    EXPECT_EQ(rows.column("id"), 0);
    EXPECT_EQ(failureOf([&] { rows["没有"].text(); }), failure::noSuchField);
    EXPECT_EQ(failureOf([&] { rows[3].text(); }), failure::noSuchField);
}

TEST_F(RecordsetTest, StreamedRowsCannotBeWritten) {
    Recordset rows(connection, "Select * From YZ_组表");
    EXPECT_EQ(failureOf([&] { rows["组名称"] = "x"; }), failure::updateNotSupported);
    EXPECT_EQ(failureOf([&] { rows.addNew(); }), failure::updateNotSupported);
    EXPECT_EQ(failureOf([&] { rows.update(); }), failure::updateNotSupported);
    Recordset counted(connection, "Select Count(*) As n From YZ_组表", Rows::updatable);
    EXPECT_EQ(counted["n"].integer(), 2);
    EXPECT_EQ(failureOf([&] { counted["n"] = 3; }), failure::updateNotSupported);
    EXPECT_EQ(failureOf([&] { Recordset(connection, "Delete From YZ_组表"); }), failure::closedRecordset);
    EXPECT_EQ(rows.columnCount(), 3);
    EXPECT_TRUE(anyRow(connection, "Select * From YZ_组表"));
}

/// A write in the midst of reading neither loses rows that were still to come nor fails.
TEST_F(RecordsetTest, ReadsOnAfterAWriteOfItsOwnConnection) {
    std::string seen;
    for (Recordset rows(connection, "Select GYD_DH From 设置管理处 Order By GYD_DH"); !rows.atEnd();
         rows.moveNext()) {
        connection.execute("Delete From 设置管理处 Where GYD_DH>'01'");
        seen += rows[0].text() + " ";
    }
    EXPECT_EQ(seen, "01 10 2 ");
    EXPECT_EQ(row("Select Count(*) From 设置管理处"), "1");
}

/// A reader's rows are kept when its connection writes. What is wrong with them is the reader's own matter.
TEST_F(RecordsetTest, KeepsItsFailureToItself) {
    connection.execute(
        "Insert Into YZ_区域设置 (区域名称,说明) Values ('一','1'),('二','2'),('三','三'),('四','4')");
    const std::string numbers =
        "Select 区域名称,说明+0 As 数 From YZ_区域设置 Where 区域名称<>'样本' And "
        "区域名称<>'浦东'";
    Recordset before(connection, "Select GYD_DH From 设置管理处 Order By GYD_DH");
    Recordset faulty(connection, numbers);
    Recordset after(connection, "Select GYD_DH From 设置管理处 Order By GYD_DH");
    faulty.moveNext();
    EXPECT_EQ(connection.execute("Insert Into YZ_组表 (组代号) Values ('09')"), 1);
    EXPECT_EQ(connection.execute("Delete From 设置管理处"), 3);
    EXPECT_EQ(row("Select Count(*) From YZ_组表 Where 组代号='09'"), "1");

    EXPECT_EQ(faulty["数"].integer(), 2);
    EXPECT_EQ(failureOf([&] { faulty.moveNext(); }), failure::badConversion);
    EXPECT_TRUE(faulty.atEnd());
    for (auto* rows : {&before, &after}) {
        std::string seen;
        for (; !rows->atEnd(); rows->moveNext()) seen += (*rows)[0].text() + " ";
        EXPECT_EQ(seen, "01 10 2 ");
    }
    // The same without a write in between.
    Recordset alone(connection, numbers);
    alone.moveNext();
    EXPECT_EQ(failureOf([&] { alone.moveNext(); }), failure::badConversion);
    EXPECT_TRUE(alone.atEnd());
    EXPECT_EQ(connection.execute("Delete From YZ_区域设置"), 6);
}

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

TEST_F(RecordsetTest, AddsRowsAndTellsTheirIdentity) {
    Recordset rows(connection, "Select * From YZ_意向书信息 Where 1=0", Rows::updatable);
    EXPECT_EQ(failureOf([&] { rows["承租方"] = "x"; }), failure::noCurrentRow);
    EXPECT_EQ(failureOf([&] { rows.update(); }), failure::noCurrentRow);
    for (const int number : {3, 4}) {
        rows.addNew();
        EXPECT_TRUE(rows["承租方"].isNull());
        rows["意向书编号"] = "N" + std::to_string(number);
        rows["管理处代号"] = "01";
        rows["租赁面积"] = " 12.50 ";
        rows["租赁起始日期"] = "2011/4/1";
        rows["流水号"] = nullIfEmpty("");
        EXPECT_EQ(rows["租赁面积"].number(), 12.5);
        rows.update();
        EXPECT_EQ(rows["ID"].integer(), number);
        EXPECT_EQ(rows["意向书ID"].integer(), number);
    }
    rows["承租方"] = "后来";
    rows.update();
    EXPECT_EQ(row("Select 意向书编号,租赁面积,租赁起始日期,承租方,流水号 From YZ_意向书信息 Where ID=4"),
              "N4|12.5|2011-04-01|后来|");
    rows.moveNext();
    EXPECT_TRUE(rows.atEnd());
}

TEST_F(RecordsetTest, ChangesTheRowOnWhichItStands) {
    Recordset rows(connection, "Select 工号,姓名,离职日期 From 员工档案 Order By 工号", Rows::updatable);
    rows.moveNext();
    rows["姓名"] = "周 明";
    rows["离职日期"] = DateTime(2011, 3, 5);
    EXPECT_EQ(rows["姓名"].text(), "周 明");
    EXPECT_EQ(row("Select 姓名 From 员工档案 Where 工号='E02'"), "周明");
    rows.update();
    rows["姓名"] = "不写";
    rows.moveNext();
    rows.update();
    EXPECT_EQ(row("Select 工号,姓名,离职日期 From 员工档案"),
              "E01|林晓|\nE02|周 明|2011-03-05\nE03|吴越|2010-12-31");
}

TEST_F(RecordsetTest, RefusesWhatTheColumnCannotHold) {
    Recordset rows(connection, "Select * From YZ_意向书信息 Where ID=1", Rows::updatable);
    for (const auto* field : {"租赁面积", "引驻客户信息ID", "租赁起始日期", "提交日期", "流转通过"})
        for (const auto* text : {"无", "", "1.2.3"})
            EXPECT_EQ(failureOf([&] { rows[field] = text; }), failure::badConversion) << field << " " << text;
    EXPECT_EQ(failureOf([&] { rows["引驻客户信息ID"] = 3e9; }), failure::badConversion);
    EXPECT_EQ(failureOf([&] { rows["租赁面积"] = DateTime(2011, 3, 5); }), failure::badConversion);
    EXPECT_EQ(failureOf([&] { rows["租赁起始日期"] = 5; }), failure::badConversion);
    EXPECT_EQ(failureOf([&] { rows["ID"] = 5; }), failure::fieldNotWritable);
    EXPECT_EQ(failureOf([&] { rows["意向书ID"] = 5; }), failure::fieldNotWritable);
    rows["引驻客户信息ID"] = "12.5";
    rows["流转通过"] = "False";
    rows.update();
    EXPECT_EQ(row("Select 引驻客户信息ID,流转通过,租赁面积 From YZ_意向书信息 Where ID=1"), "12|0|120.5");
}

TEST_F(RecordsetTest, TellsViolatedRules) {
    Recordset rows(connection, "Select * From 员工档案 Where 工号='E01'", Rows::updatable);
    rows["工号"] = Value();
    EXPECT_EQ(failureOf([&] { rows.update(); }), failure::violatedRule);
    rows["工号"] = "e02";
    EXPECT_EQ(failureOf([&] { rows.update(); }), failure::violatedRule);
    rows.addNew();
    EXPECT_EQ(failureOf([&] { rows.update(); }), failure::violatedRule);
    // The refused row waits for a better value.
    rows["工号"] = "E09";
    rows.update();
    EXPECT_EQ(failureOf([&] { connection.execute("Insert Into 员工档案 (工号) Values ('E09')"); }),
              failure::violatedRule);
    EXPECT_EQ(failureOf([&] { connection.execute("Update 员工档案 Set 工号=Null"); }), failure::violatedRule);
    EXPECT_EQ(row("Select Count(*) From 员工档案"), "4");
}

TEST_F(RecordsetTest, MissesARowThatHasGone) {
    for (const Name table : std::initializer_list<Name>{"YZ_区域设置", "YZ_意向书信息"}) {
        Recordset rows(connection, sql("Select * From {}", table), Rows::updatable);
        connection.execute(sql("Delete From {}", table));
        // A row that comes after must not be taken for it.
        connection.execute(table.text() == "YZ_区域设置"
                               ? "Insert Into YZ_区域设置 Values ('新',Null)"
                               : "Insert Into YZ_意向书信息 (意向书编号,管理处代号) Values ('新','01')");
        rows[1] = "改";
        EXPECT_EQ(failureOf([&] { rows.update(); }), failure::rowGone);
        EXPECT_EQ(row(sql("Select Count(*) From {}", table)), "1");
    }
    EXPECT_EQ(row("Select 意向书编号 From YZ_意向书信息"), "新");
}

TEST_F(RecordsetTest, WritesAllOrNothingInATransaction) {
    connection.begin();
    EXPECT_EQ(failureOf([&] { connection.begin(); }), failure::unspecified);
    connection.execute("Delete From YZ_组表");
    Recordset rows(connection, "Select * From YZ_主职表", Rows::updatable);
    rows["主职名称"] = "改";
    rows.update();
    EXPECT_EQ(failureOf([&] { connection.execute("Update 员工档案 Set 工号=Null"); }), failure::violatedRule);
    connection.rollback();
    EXPECT_EQ(row("Select Count(*) From YZ_组表"), "2");
    EXPECT_EQ(row("Select 主职名称 From YZ_主职表 Where 主职代号='01'"), "组长");

    Recordset reading(connection, "Select 工号 From 员工档案 Order By 工号");
    connection.begin();
    connection.execute("Delete From YZ_组表");
    connection.commit();
    EXPECT_EQ(row("Select Count(*) From YZ_组表"), "0");
    reading.moveNext();
    EXPECT_EQ(reading[0].text(), "E02");
    EXPECT_EQ(failureOf([&] { connection.commit(); }), failure::unspecified);
    EXPECT_EQ(failureOf([&] { connection.rollback(); }), failure::unspecified);
}

}  // namespace
}  // namespace desk
