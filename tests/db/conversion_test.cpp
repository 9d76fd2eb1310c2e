#include <gtest/gtest.h>

#include "filled_database.h"

namespace desk {
namespace {

class Conversion : public testing::Test, protected FilledDatabase {
  protected:
    long failureNumber(const std::string& statement) {
        return failureOf([&] { connection.execute(statement); });
    }
    std::string countOf(const std::string& table, const std::string& condition) {
        return row("Select Count(*) From " + table + " Where " + condition);
    }
};

TEST_F(Conversion, ReadsDatesInEveryFormThatTheSystemWrites) {
    for (const auto* day :
         {"2011-03-05", "2011-3-5", "2011/3/5", "2011/03/05", "20110305", "2011-3-5 0:00:00"})
        EXPECT_EQ(countOf("YZ_引驻客户信息", fragment("登记日期='{}'", day).text()), "2") << day;
    EXPECT_EQ(countOf("YZ_引驻客户信息", "'2011-3-5'=登记日期"), "2");
    EXPECT_EQ(countOf("YZ_引驻客户信息", "登记日期 Between '2011/3/2' And '2011-3-5'"), "2");
    EXPECT_EQ(countOf("YZ_引驻客户信息", "登记日期 In ('2011-3-1','2011/3/6')"), "3");
    // A day is midnight: it lies before any time of its own.
    EXPECT_EQ(countOf("YZ_引驻客户信息", "登记日期<'2011-3-5 0:00:01'"), "4");
    EXPECT_EQ(countOf("YZ_意向书信息", "提交日期='2011/3/10 9:05'"), "1");
    EXPECT_EQ(countOf("YZ_意向书信息", "提交日期>'2011-3-10'"), "1");
    EXPECT_EQ(countOf("YZ_意向书信息 a,YZ_引驻客户信息 b", "a.提交日期>b.登记日期"), "5");
    EXPECT_EQ(countOf("(Select Max(登记日期) As d From YZ_引驻客户信息) t", "t.d='2011/3/6'"), "1");
}

TEST_F(Conversion, RefusesWhatIsNoDate) {
    for (const auto* text : {"", "今天", "2011-2-29", "2011-13-1", "5", "2011-3-5 25:00"}) {
        EXPECT_EQ(failureNumber(sql("Select * From YZ_引驻客户信息 Where 登记日期='{}'", text)),
                  failure::badConversion)
            << text;
        EXPECT_EQ(failureNumber(sql("Update YZ_引驻客户信息 Set 登记日期='{}'", text)),
                  failure::badConversion)
            << text;
    }
    EXPECT_EQ(failureNumber("Select * From YZ_引驻客户信息 Where 登记日期=5"), failure::wrongStatement);
    EXPECT_EQ(failureNumber("Update YZ_引驻客户信息 Set 登记日期=2011-3-5"), failure::wrongStatement);
    EXPECT_EQ(failureNumber("Select * From YZ_引驻客户信息 Where 登记日期=登记编号"),
              failure::wrongStatement);
}

TEST_F(Conversion, ADateThatIsToldATimeKeepsIt) {
    connection.execute(
        "Update YZ_意向书信息 Set 租赁起始日期='2011/4/9 10:30',提交日期='2011/4/9' Where ID=1");
    EXPECT_EQ(row("Select 租赁起始日期,提交日期 From YZ_意向书信息 Where 租赁起始日期>提交日期"),
              "2011-04-09 10:30:00|2011-04-09");
    EXPECT_EQ(countOf("YZ_意向书信息", "租赁起始日期 Between '2011-4-9' And '2011-4-10'"), "1");
    EXPECT_EQ(countOf("YZ_意向书信息", "租赁起始日期='2011-4-9'"), "0");
    EXPECT_EQ(row("Select Convert(Char(8),租赁起始日期,112) From YZ_意向书信息 Where ID=1"), "20110409");
    connection.execute("Update YZ_意向书信息 Set 租赁结束日期=提交日期,流转结束日期=租赁起始日期 Where ID=1");
    EXPECT_EQ(row("Select 租赁结束日期,流转结束日期 From YZ_意向书信息 Where 租赁起始日期=流转结束日期"),
              "2011-04-09|2011-04-09 10:30:00");
    Recordset letter(connection, "Select * From YZ_意向书信息 Where ID=1", Rows::updatable);
    letter["租赁结束日期"] = DateTime(std::chrono::year(2011) / 4 / 9, std::chrono::hours(14));
    letter["租赁起始日期"] = "2011-4-9 0:00";
    letter.update();
    EXPECT_EQ(row("Select 租赁起始日期,租赁结束日期 From YZ_意向书信息 Where 租赁结束日期>租赁起始日期"),
              "2011-04-09|2011-04-09 14:00:00");
}

TEST_F(Conversion, TurnsTextsIntoNumbersWhereTheyMeet) {
    EXPECT_EQ(countOf("YZ_意向书信息", "ID='1'"), "1");
    EXPECT_EQ(countOf("YZ_意向书信息", "ID In ('1', 2 )"), "2");
    EXPECT_EQ(countOf("YZ_意向书信息", "ID=' '"), "0");
    EXPECT_EQ(countOf("YZ_意向书审批情况", "岗位代号=101"), "1");
    EXPECT_EQ(countOf("YZ_意向书审批情况", "岗位代号 In ('0101',102)"), "2");
    EXPECT_EQ(countOf("岗位权限设置", "授权='True'"), "1");
    EXPECT_EQ(failureNumber("Select * From YZ_意向书信息 Where ID='YM1'"), failure::badConversion);
    EXPECT_EQ(failureNumber("Select * From YZ_引驻客户信息 Where 登记编号=5"), failure::badConversion);
    connection.execute(sql("Update YZ_引驻客户信息 Set 登记编号='{}'", std::string("5\0x", 3)));
    EXPECT_EQ(failureNumber("Select * From YZ_引驻客户信息 Where 登记编号=5"), failure::badConversion);
}

TEST_F(Conversion, StoresNumbersByTheColumnsKind) {
    connection.execute("Update YZ_意向书审批路径 Set 审批环节序号='7' Where ID=1");
    connection.execute(
        "Update YZ_意向金收款 Set 单价=1.23456,金额='2.5',数量=-3,处理结束=5,票据编号=12 Where ID=1");
    EXPECT_EQ(row("Select 审批环节序号 From YZ_意向书审批路径 Where ID=1"), "7");
    EXPECT_EQ(row("Select 单价,金额,数量,处理结束,票据编号 From YZ_意向金收款"), "1.2346|2.5|-3|1|12");
    connection.execute("Update YZ_意向金收款 Set 金额=金额+0.00001,意向书ID='',备注=意向书ID Where ID=1");
    EXPECT_EQ(row("Select 金额,意向书ID,备注 From YZ_意向金收款"), "2.5|0|1");
    EXPECT_EQ(failureNumber("Update YZ_意向金收款 Set 数量='三'"), failure::badConversion);
    EXPECT_EQ(failureNumber("Update YZ_意向书审批路径 Set 审批环节序号='1.5'"), failure::badConversion);
    EXPECT_EQ(failureNumber("Update YZ_意向书审批路径 Set 审批环节序号=3000000000"), failure::badConversion);
    EXPECT_EQ(failureNumber("Update YZ_意向书审批路径 Set 审批环节序号=部门代号+'x'"),
              failure::badConversion);
}

TEST_F(Conversion, GivesValuesOfTheColumnsKind) {
    Recordset letter(
        connection,
        "Select 提交日期,租赁起始日期,租赁面积,流转通过,ID,承租方,意向金收取日期 From YZ_意向书信息");
    const DateTime submitted(std::chrono::year(2011) / 3 / 10,
                             std::chrono::hours(9) + std::chrono::minutes(5));
    EXPECT_EQ(letter[0].value(), Value(submitted));
    EXPECT_EQ(letter[1].value(), Value(DateTime(2011, 4, 1)));
    EXPECT_EQ(letter[2].value(), Value(120.5));
    EXPECT_EQ(letter[3].value(), Value(true));
    EXPECT_EQ(letter[4].value(), Value(1));
    EXPECT_EQ(letter[5].value(), Value("盛远"));
    EXPECT_EQ(letter[0].text(), "2011-03-10 09:05:00");
    EXPECT_EQ(letter["租赁起始日期"].text(), "2011-04-01");
    EXPECT_EQ(letter[2].text(), "120.5");
    EXPECT_EQ(letter[5].view(), "盛远");
    EXPECT_TRUE(letter[6].isNull());
    EXPECT_TRUE(letter[6].value().isNull());
    EXPECT_EQ(failureOf([&] { letter[6].moment(); }), failure::invalidNull);
    EXPECT_EQ(letter[6].integer(), 0);
    EXPECT_EQ(failureOf([&] { letter[5].number(); }), failure::typeMismatch);
    letter.moveNext();
    EXPECT_TRUE(letter[2].isNull());
    EXPECT_EQ(letter[2].number(), 0);
    EXPECT_FALSE(letter[3].flag());
}

TEST_F(Conversion, TellsATextToItsEndWhateverWasPastedIntoIt) {
    using namespace std::string_literals;
    const auto told = [&](const std::string& statement) {
        return failureTextOf([&] { connection.execute(statement); });
    };
    const auto pasted = "a\0b"s;
    EXPECT_EQ(told(sql("Update YZ_引驻客户信息 Set 需求面积='{}'", pasted)),
              "将文本 'a␀b' 转换为数值时失败。");
    EXPECT_EQ(told(sql("Update YZ_引驻客户信息 Set 登记日期='{}'", pasted)),
              "将文本 'a␀b' 转换为日期时失败。");
    connection.execute(sql("Update YZ_引驻客户信息 Set 公司名称='{}'", pasted));
    EXPECT_NE(told("Update YZ_引驻客户信息 Set 备注='x' Where 公司名称=1").find("'a␀b'"), std::string::npos);
}

}  // namespace
}  // namespace desk
