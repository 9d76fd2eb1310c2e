#include <fmt/format.h>
#include <gtest/gtest.h>

#include "db/embedded/functions.h"
#include "filled_database.h"

namespace desk {
namespace {

class Dialect : public testing::Test, protected FilledDatabase {
  protected:
    std::string failureText(const std::string& statement) {
        EXPECT_EQ(failureOf([&] { rows(statement); }), failure::wrongStatement) << statement;
        return failureTextOf([&] { rows(statement); });
    }
};

TEST_F(Dialect, TakesNamesTextsAndNumbersAsTheServerDoes) {
    EXPECT_EQ(row("Select [gyd_name] From [设置管理处] Where \"GYD_DH\"=N'01' -- the first\n"), "东塔");
    EXPECT_EQ(row("select/* all of it */t.Gyd_Name from 设置管理处 t where t.GYD_DH='01';"), "东塔");
    EXPECT_EQ(row("Select 'it''s' As 甲, 1.50, .5, -2, 1e3, Null"), "it's|1.5|0.5|-2|1000|");
    EXPECT_EQ(Recordset(connection, "Select 1 a, 2 As [group]")["group"].integer(), 2);
}

TEST_F(Dialect, JoinsTextsAndAddsNumbers) {
    EXPECT_EQ(row("Select GYD_DH+' '+GYD_Name From 设置管理处 Where GYD_DH='01'"), "01 东塔");
    EXPECT_EQ(row("Select 公司名称+法人代表 From YZ_中介公司设置 Where 公司名称='佳信'"), "");
    EXPECT_EQ(row("Select 流水号+1, 流水号+'1', 10-流水号 From YZ_引驻客户信息 Where 登记编号='2011-000010'"),
              "11|11|0");
}

TEST_F(Dialect, CountsLengthWithoutTrailingBlanks) {
    EXPECT_EQ(row("Select Len('ab  '), Len(' ab'), Len(''), Len('引驻 '), Len(Null), Len(120)"),
              "2|3|0|2||3");
}

TEST_F(Dialect, ComparesDaysByConvert) {
    EXPECT_EQ(row("Select Convert(Char(8),提交日期,112), Convert(varchar(8),租赁起始日期,112) From "
                  "YZ_意向书信息 Where ID=1"),
              "20110310|20110401");
    EXPECT_NE(failureText("Select Convert(Char(10),提交日期,120) From YZ_意向书信息"), "");
    EXPECT_NE(failureText("Select Convert(Char(8),意向书编号,112) From YZ_意向书信息"), "");
}

TEST_F(Dialect, MatchesPatterns) {
    using embedded::isLike;
    EXPECT_TRUE(isLike("报纸,网络", "%网络%"));
    EXPECT_FALSE(isLike("报纸", "%网络%"));
    EXPECT_TRUE(isLike("", "%"));
    EXPECT_FALSE(isLike("", "_"));
    EXPECT_TRUE(isLike("aXbXc", "a%b%c"));
    EXPECT_TRUE(isLike("aab", "%ab"));
    EXPECT_FALSE(isLike("abx", "%ab"));
    EXPECT_TRUE(isLike("ＡＢＣ", "abc"));
    EXPECT_TRUE(isLike("É", "é"));
    EXPECT_TRUE(isLike("楼3", "楼[1-5]"));
    EXPECT_FALSE(isLike("楼7", "楼[1-5]"));
    EXPECT_TRUE(isLike("楼7", "楼[^1-5]"));
    EXPECT_TRUE(isLike("100%", "100[%]"));
    EXPECT_FALSE(isLike("[", "["));
    EXPECT_TRUE(isLike("报纸,网络［官网］", "%网络［官网］%"));
    EXPECT_FALSE(isLike("楼A", "楼＿"));
    EXPECT_FALSE(isLike("楼AB", "楼％"));
    EXPECT_TRUE(isLike("楼］", "楼[a］]"));
    EXPECT_EQ(row("Select Count(*) From YZ_引驻客户信息 Where 媒体 Not Like ('%报纸%')"), "1");
}

TEST_F(Dialect, JoinsTablesInEveryWay) {
    EXPECT_EQ(row("Select Count(*) From YZ_组表,YZ_主职表"), "6");
    EXPECT_EQ(row("Select Count(*) From YZ_组表 Cross Join YZ_主职表"), "6");
    EXPECT_EQ(
        row("Select Count(*) From YZ_区域设置 a Full Outer Join YZ_媒体设置 b On a.区域名称=b.媒体名称"),
        "3");
    EXPECT_EQ(row("Select a.区域名称 From YZ_区域设置 a Right Join YZ_媒体设置 b On a.区域名称=b.媒体名称 "
                  "Order By b.媒体名称"),
              "\n样本");
    EXPECT_EQ(
        row("Select b.* From 员工档案 a, (Select Top 1 工号 As 号,姓名 From 员工档案 Order By 工号 Desc) b "
            "Where a.工号=b.号"),
        "E03|吴越");
    EXPECT_EQ(row("Select 登记编号 From YZ_引驻客户信息 a Where 管理处代号='01' And 登记编号 Not In (Select "
                  "登记编号 From "
                  "YZ_引驻客户分配 b Where b.管理处代号=a.管理处代号) Order By 登记编号"),
              "2011-000010\nA1");
}

TEST_F(Dialect, GroupsAndOrders) {
    EXPECT_EQ(
        row("Select 管理处代号, Count(*) As n, Sum(流水号), Avg(流水号), Min(登记日期) From YZ_引驻客户信息 "
            "Group By 管理处代号 Having Count(*)>1"),
        "01|4|13|4|2011-03-01");
    EXPECT_EQ(row("Select GYD_Name As 名 From 设置管理处 Order By 名 Desc"), "西塔\n裙楼\n东塔");
    EXPECT_EQ(row("Select Top (2) GYD_DH From 设置管理处 Order By 1"), "01\n10");
    // A bare name in Order By means the chosen column even where two tables have it.
    EXPECT_EQ(
        row("Select b.组代号 From YZ_组表 a Inner Join YZ_组人员设置 b On a.组代号=b.组代号 Order By 组代号"),
        "01\n02");
}

TEST_F(Dialect, WritesSomeOfTheRowsThatAreMeantAndRowsOfDefaults) {
    EXPECT_EQ(connection.execute("Update Top (1) 设置管理处 Set GYD_Name='改' Where GYD_DH>'01'"), 1);
    EXPECT_EQ(row("Select Count(*) From 设置管理处 Where GYD_Name='改' And GYD_DH>'01'"), "1");
    EXPECT_EQ(connection.execute("Update Top (5) 设置管理处 Set GYD_Name='全'"), 3);
    EXPECT_EQ(connection.execute("Insert Into 岗位员工new Default Values"), 1);
    EXPECT_EQ(failureOf([&] { connection.execute("Insert Into 设置管理处 Default Values"); }),
              failure::violatedRule);
    EXPECT_EQ(row("Select 'a'+NChar(0)+'b'"), std::string("a\0b", 3));
    EXPECT_NE(failureText("Select NChar(65)"), "");
}

TEST_F(Dialect, TellsUnknownAndAmbiguousNames) {
    EXPECT_EQ(failureText("Select 区域名称 From YZ_企业性质设置"), "列名 '区域名称' 无效。");
    EXPECT_EQ(failureText("Select 终止日期 From YZ_组人员设置,YZ_组对应管理项目设置"),
              "列名 '终止日期' 不明确。");
    EXPECT_EQ(failureText("Select x.组代号 From YZ_组表"), "无法绑定由多个部分组成的标识符 \"x.组代号\"。");
    EXPECT_EQ(failureText("Select YZ_组表.组代号 From YZ_组表 a"),
              "无法绑定由多个部分组成的标识符 \"YZ_组表.组代号\"。");
    EXPECT_EQ(failureText("Select x.* From YZ_组表"), "列前缀 'x' 与查询中所用的表名或别名不匹配。");
    EXPECT_NE(failureText("Select * From YZ_组表,YZ_组表"), "");
    EXPECT_NE(failureText("Select t.a From (Select 组代号 From YZ_组表) t"), "");
    EXPECT_NE(failureText("Select * From (Select 组代号,组代号 From YZ_组表) t"), "");
    EXPECT_NE(failureText("Select * From (Select Len(组代号) From YZ_组表) t"), "");
    EXPECT_NE(failureText("Select _row From YZ_组表"), "");
    EXPECT_NE(failureText("Select rowid From YZ_组表"), "");
    for (const auto* table : {"没有的表", "sqlite_schema"}) {
        const auto statement = std::string("Select * From ") + table;
        EXPECT_EQ(failureOf([&] { rows(statement); }), failure::unknownTable);
        EXPECT_EQ(failureTextOf([&] { rows(statement); }), fmt::format("对象名 '{}' 无效。", table));
    }
    // A name before the comma is not seen in a join behind it.
    EXPECT_NE(
        failureText("Select 1 From YZ_组表 a,YZ_主职表 b Inner Join YZ_区域设置 c On a.组代号=c.区域名称"),
        "");
}

TEST_F(Dialect, TellsWhereASentenceBreaks) {
    EXPECT_EQ(failureText("Select * From YZ_组表 Where 组代号="), "'=' 附近有语法错误。");
    EXPECT_EQ(failureText("Select * From YZ_引驻客户跟进记录 where ID= And 1=1"), "'And' 附近有语法错误。");
    EXPECT_EQ(failureText("Select * From YZ_意向书单元信息 Where 单元ID In() AND 终止日期 is Null"),
              "')' 附近有语法错误。");
    EXPECT_EQ(failureText("Delete From YZ_组表 Where 组代号='1',"), "',' 附近有语法错误。");
    EXPECT_EQ(failureText("Selec * From YZ_组表"), "'Selec' 附近有语法错误。");
    EXPECT_EQ(failureText("Select * From YZ_组表 Where 组代号='O'Neil'"), "字符串 '' 后的引号不完整。");
    EXPECT_EQ(failureText("Select * From YZ_组表 Where 组代号='王'五"), "'五' 附近有语法错误。");
    EXPECT_EQ(failureText("Select * From YZ_组表 Where 组代号＝'1'"), "'＝' 附近有语法错误。");
    EXPECT_EQ(failureText("Select GetDate()"), "'GetDate' 不是可以识别的函数名。");
    for (const auto* wrong : {"",
                              "   ",
                              ";",
                              "Select",
                              "Select * From",
                              "Select * From YZ_组表 Where",
                              "Select * From YZ_组表 Where 组代号",
                              "Select 1=1",
                              "Drop Table YZ_组表",
                              "Select 1; Delete YZ_组表",
                              "Select * From (Select 1 As a)",
                              "Update YZ_组表 Set",
                              "Insert Into YZ_组表 (组代号) Values ('1','2')",
                              "Select Top 1.5 * From YZ_组表",
                              "Select Case When 1 Then 2 End",
                              "Select 组代号, Count(*) From YZ_组表",
                              "Select Count(Count(*)) From YZ_组表",
                              "Select * From YZ_组表 Where Count(*)>1",
                              "Select Distinct 组名称 From YZ_组表 Order By 组代号",
                              "Select * From (Select * From YZ_组表 Order By 组代号) t",
                              "Select * From YZ_组表 Order By 9",
                              "Update YZ_意向书信息 Set 意向书ID=1",
                              "Update YZ_意向书信息 Set ID=1",
                              "Select /* 1",
                              "Select \xff",
                              "Select 1 From YZ_组表 Where 组代号 In (Select * From YZ_组表)",
                              "Select 组代号 a b From YZ_组表"})
        EXPECT_EQ(failureOf([&] { connection.execute(wrong); }), failure::wrongStatement) << wrong;
}

/// `piece` that often, `between` between them.
std::string repeated(const std::string& piece, int times, const std::string& between = "") {
    return join(std::vector<std::string>(static_cast<std::size_t>(times), piece), between);
}

TEST_F(Dialect, TakesChainsOfAnyLength) {
    for (const int links : {90, 201, 5000}) {
        std::string any = "组代号='02'";
        std::string all = "组代号='02'";
        for (int i = 0; i < links; ++i) {
            any += sql(" or 组代号='x{}'", i);
            all += sql(" and 组代号<>'x{}'", i);
        }
        EXPECT_EQ(row("Select 组代号 From YZ_组表 Where " + any), "02") << links;
        EXPECT_EQ(row("Select 组代号 From YZ_组表 Where Not (" + any + ")"), "01") << links;
        EXPECT_EQ(row("Select 组代号 From YZ_组表 Where " + all), "02") << links;
        EXPECT_EQ(row("Select 组代号 From YZ_组表 Where " + all + " and 组代号='01'"), "") << links;
    }
    EXPECT_EQ(row("Select 100-1" + repeated("-1", 89) + "+5"), "15");
    EXPECT_EQ(row("Select Len('a'" + repeated("+'b'", 300) + ")"), "301");
    EXPECT_EQ(row("Select '1'+'2'+3+4, 10-(3-2), 10-3-2"), "19|9|5");
}

TEST_F(Dialect, RefusesWhatIsTooDeepForTheStack) {
    const auto nested = [](const std::string& before, const std::string& core, const std::string& after) {
        return repeated(before, 20000) + core + repeated(after, 20000);
    };
    for (const auto& deep :
         {"Select " + nested("(", "1", ")"), "Select " + nested("Len(", "1", ")"),
          "Select " + nested("Case When 1=1 Then ", "1", " End"), "Select 1" + repeated("+1", 100000),
          "Select 'a'" + repeated("+'a'", 100000), nested("Select * From (", "Select 1 As a", ") t"),
          "Select 1 Where " + nested("1 In (Select 1 Where ", "1=1", ")"),
          "Select " + repeated("1+(", 90) + "1" + repeated("+1", 490) + repeated(")", 90)})
        EXPECT_EQ(failureOf([&] { rows(deep); }), failure::wrongStatement) << deep.substr(0, 40);
    EXPECT_EQ(row("Select " + repeated("- ", 100000) + "1"), "1");
    EXPECT_EQ(row("Select 1 Where " + repeated("Not ", 100000) + "1=1"), "1");
}

TEST_F(Dialect, TakesAnythingAsAText) {
    EXPECT_EQ(
        connection.execute(sql("Update YZ_组表 Set 组说明='{}' Where 组代号='01'", "引号\" [括号] ; -- %")),
        1);
    EXPECT_EQ(row("Select 组说明 From YZ_组表 Where 组代号='01'"), "引号\" [括号] ; -- %");
}

}  // namespace
}  // namespace desk
