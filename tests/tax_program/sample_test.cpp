#include "sample/sample.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <set>

#include "db/recordset.h"
#include "db/statement.h"
#include "tax-program/invoice.h"
#include "tax-program/options.h"

namespace desk {
namespace {

/// What a sample property and the program that prints its invoices must agree on.
class TheSamplesDevice : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        database = new Connection;
        database->open("Initial Catalog=':memory:';Data Source='(embedded)'", std::chrono::seconds(1));
        sample::fill(*database, {}, DateTime(2011, 3, 5), "/somewhere/tax-program");
    }
    static void TearDownTestSuite() {
        delete database;
        database = nullptr;
    }

    static std::vector<std::string> rows(std::string_view statement) {
        std::vector<std::string> all;
        for (auto& row : Recordset(*database, statement)) {
            std::string line;
            for (int column = 0; column < row.columnCount(); ++column)
                line += (column > 0 ? "|" : "") + row[column].text();
            all.push_back(line);
        }
        return all;
    }
    static std::vector<std::string> openBooks(const char* department) {
        return rows(sql(
            "SELECT 票据领用清单.入库单编号 FROM 票据领用记录 INNER JOIN 票据领用清单 ON "
            "票据领用记录.票据领用记录编号 = 票据领用清单.领用记录编号 INNER JOIN 票据入库单 ON "
            "票据领用清单.入库单编号 = 票据入库单.入库单编号 INNER JOIN 票据类型 ON "
            "票据入库单.票据类型编号 = 票据类型.票据类型代号 Where (票据领用清单.核销日期 Is Null) And "
            "(票据领用清单.归还日期 Is Null) And (票据类型.定额 = 0) AND 票据领用记录.领用部门代号 = '{}' "
            "AND 票据入库单.税控=1 Order by 票据领用清单.入库单编号",
            department));
    }

  private:
    static inline Connection* database = nullptr;
};

TEST_F(TheSamplesDevice, IsStartedAndLoggedInTo) {
    const tax::Options told;
    EXPECT_EQ(rows("Select 软件名称,启动后名称 From 票据税控机 Where 使用单位='103' And 终止日期 is Null"),
              (std::vector<std::string>{"/somewhere/tax-program|" + told.title.toStdString()}));
    EXPECT_EQ(rows("Select UserNum,Password From SKOperator Inner Join 票据税控机 On SK_ID=票据税控机.ID "
                   "Where 终止日期 is Null"),
              (std::vector<std::string>{told.user.toStdString() + "|" + told.password.toStdString()}));
    // The cashier may operate it; others of the department, who take deposits too, may not.
    EXPECT_EQ(
        rows("Select 岗位代号 From 岗位信息new Where 职能部门代号='103' And 工号 In(Select OperatorNum From "
             "SKOperator)"),
        std::vector<std::string>{"402"});
    EXPECT_GT(rows("Select 岗位代号 From 岗位信息new Where 职能部门代号='103' And 工号 Is Not Null").size(),
              1U);
}

TEST_F(TheSamplesDevice, ShowsTheNextBlankTicketOfTheFirstBook) {
    const auto books = openBooks("103");
    ASSERT_GE(books.size(), 3U);
    const auto tickets =
        rows(sql("Select 票据编号,ID From 票据  Where 开票日期 Is Null and 作废日期 Is Null And "
                 "入库单编号='{} ' Order By 票据编号",
                 books.front()));
    ASSERT_EQ(tickets.size(), 100U);
    const tax::Options told;
    for (std::size_t i = 0; i < tickets.size(); ++i)
        EXPECT_EQ(tickets[i].substr(0, 8), fmt::format("{:08}", told.firstNumber.toUInt() + i));

    // The other books are begun, each with a spoilt ticket.
    EXPECT_GT(rows("Select ID From 票据 Where 开票日期 Is Not Null").size(), 1U);
    EXPECT_EQ(rows("Select ID From 票据 Where 作废日期 Is Not Null").size(), 5U);
    // Sales may use the books of the cashier; the management has none.
    EXPECT_EQ(rows("Select 领用部门编号 From 票据共用设置 Where 共用部门编号='101'"),
              std::vector<std::string>{"103"});
    EXPECT_TRUE(openBooks("101").empty());
    EXPECT_TRUE(openBooks("1").empty());
    EXPECT_TRUE(rows("Select 领用部门编号 From 票据共用设置 Where 共用部门编号='1'").empty());
}

TEST_F(TheSamplesDevice, KnowsTheChargesByCodeAndPosition) {
    const auto known = rows("Select 项目编号,XM_Num,XM_Name,XM_Xu From SKSfxm");
    ASSERT_EQ(known.size(), 4U);
    const char* charges[] = {"YJ01", "YJ02", "YJ04", "YJ05"};
    for (std::size_t i = 0; i < known.size(); ++i)
        EXPECT_EQ(known[i],
                  fmt::format("{}|{}|{}|{}", charges[i], tax::items[i].code, tax::items[i].name, i + 1));
    // One deposit goes on receipts, and the device does not know it.
    EXPECT_EQ(
        rows("Select DH,票据类型 From SETUPSFXM Where 收费类别='押金' And DH Not In(Select 项目编号 From "
             "SKSfxm)"),
        std::vector<std::string>{"YJ03|2"});
    EXPECT_EQ(
        rows("Select SETUPSFXM.ID From SETUPSFXM Inner Join 财务科目 On SETUPSFXM.对应科目=财务科目.科目代号")
            .size(),
        rows("Select ID From SETUPSFXM").size());
}

TEST_F(TheSamplesDevice, HasScriptsOfStepsThatTheRunnerKnows) {
    std::set<std::string> words;
    for (const char* what : {"单价", "数量", "金额"})
        for (const char* line : {"1", "2", "3"}) words.insert(std::string("输入") + what + line);
    for (const char* line : {"1", "2", "3"}) words.insert(std::string("按经营项目编号") + line);
    for (const char* what : {"用户名", "密码", "付款人", "备注"}) words.insert(std::string("输入") + what);

    std::set<std::string> said;
    for (const auto& line : rows("Select Remark From SKStep Where Remark Is Not Null")) said.insert(line);
    EXPECT_EQ(said, words);
    for (const Name table : std::initializer_list<Name>{"SKStep", "SKTPStep"}) {
        const auto script =
            rows(fragment("Select Stage,Operate_type,X,KeyString From {} Where Remark Is Null "
                          "Order By Operate_step",
                          table)
                     .text());
        EXPECT_EQ(script.front(), "登录阶段|延时|6|") << table.text();
        EXPECT_EQ(std::count(script.begin(), script.end(),
                             std::string(table.text() == "SKStep" ? "开票" : "退票") + "阶段|获取发票编号||"),
                  1)
            << table.text();
    }
    EXPECT_EQ(rows("Select KeyString From SKStep Where KeyString Is Not Null Order By Operate_step").back(),
              "{F9}");
}

}  // namespace
}  // namespace desk
