#include "sample/sample.h"

#include <gtest/gtest.h>

#include <set>

#include "db/recordset.h"
#include "db/statement.h"
#include "schema/catalogue.h"

namespace desk {
namespace {

const DateTime today(2011, 3, 5);

Connection sampleDatabase(const sample::Size& size, const DateTime& day = today) {
    Connection connection;
    connection.open("Initial Catalog=':memory:';Data Source='(embedded)'", std::chrono::seconds(1));
    sample::fill(connection, size, day);
    return connection;
}

/// All rows of a statement, fields joined by "|".
std::vector<std::string> rowsOf(Connection& connection, std::string_view statement) {
    std::vector<std::string> rows;
    for (auto& row : Recordset(connection, statement)) {
        std::string line;
        for (int column = 0; column < row.columnCount(); ++column)
            line += (column > 0 ? "|" : "") + (row[column].isNull() ? "NULL" : row[column].text());
        rows.push_back(line);
    }
    return rows;
}

long countOf(Connection& connection, std::string_view fromWhere) {
    return static_cast<long>(
        Recordset(connection, "Select Count(*) As SL " + std::string(fromWhere))["SL"].integer());
}

/// Every row of every table.
std::vector<std::string> everything(Connection& connection) {
    std::vector<std::string> all;
    for (const auto& table : schema::tables())
        for (const auto& row : rowsOf(connection, "Select * From " + std::string(table.name)))
            all.push_back(std::string(table.name) + ": " + row);
    return all;
}

sample::Size small() {
    sample::Size size;
    size.leads = 300;
    size.units = 120;
    return size;
}

TEST(SampleData, IsTheSameForTheSameSeed) {
    Connection one = sampleDatabase(small());
    Connection two = sampleDatabase(small());
    sample::Size other = small();
    other.seed = 2;
    Connection three = sampleDatabase(other);
    const auto rows = everything(one);
    EXPECT_GT(rows.size(), 1000U);
    EXPECT_EQ(rows, everything(two));
    EXPECT_NE(rows, everything(three));
}

TEST(SampleData, HasNothingThatTheSmallestSizeCannotHave) {
    sample::Size least;
    least.leads = sample::leadLimits().least;
    least.units = sample::unitLimits().least;
    least.staff = sample::staffLimits().least;
    least.years = sample::yearLimits().least;
    Connection connection = sampleDatabase(least);
    EXPECT_EQ(countOf(connection, "From YZ_引驻客户信息"), 0);
    EXPECT_EQ(countOf(connection, "From 员工档案"), least.staff);
    EXPECT_EQ(rowsOf(connection, "Select 组代号 From YZ_组人员设置 Where 终止日期 is Null").size(), 4U + 1U);
}

TEST(SampleData, LeavesAFilledDatabaseAsItIs) {
    Connection connection = sampleDatabase(small());
    const auto before = everything(connection);
    EXPECT_ANY_THROW(sample::fill(connection, small(), today));
    EXPECT_EQ(everything(connection), before);
}

/// The property that ./run makes, made once for all that only look at it.
class ASampleProperty : public testing::Test {
  protected:
    static void SetUpTestSuite() { database = new Connection(sampleDatabase({})); }
    static void TearDownTestSuite() {
        delete database;
        database = nullptr;
    }
    static Connection& db() { return *database; }
    static std::vector<std::string> rows(std::string_view statement) { return rowsOf(db(), statement); }
    static long count(std::string_view fromWhere) { return countOf(db(), fromWhere); }

  private:
    static inline Connection* database = nullptr;
};

TEST_F(ASampleProperty, HasTheSizeThatWasAskedFor) {
    EXPECT_EQ(count("From 设置管理处"), 3);
    EXPECT_EQ(count("From 职能部门new"), 4);
    EXPECT_EQ(count("From 员工档案"), 30);
    EXPECT_EQ(count("From 员工档案 Where 离职日期 is not Null"), 1);
    EXPECT_EQ(count("From 室表"), 600);
    EXPECT_EQ(count("From YZ_引驻客户信息"), 2000);
    for (const char* kind : {"引驻来人", "引驻来电", "中介来人", "自行开发"})
        EXPECT_GT(count(fragment("From YZ_引驻客户信息 Where 客源类别='{}'", kind).text()), 20) << kind;
    for (const Name table : std::initializer_list<Name>{"YZ_区域设置", "YZ_企业性质设置", "YZ_行业设置",
                                                        "YZ_媒体设置", "YZ_咨询内容设置", "YZ_跟进状态设置"})
        EXPECT_GT(count(fragment("From {}", table).text()), 5) << table.text();
    EXPECT_EQ(rows("Select Distinct 颜色表示 From YZ_跟进状态设置").size(),
              static_cast<std::size_t>(count("From YZ_跟进状态设置")));
}

TEST_F(ASampleProperty, RefersOnlyToWhatItHas) {
    struct Reference {
        Name from;
        Name column;
        Name to;
        Name key;
    };
    const Reference references[] = {
        {"YZ_引驻客户信息", "管理处代号", "设置管理处", "GYD_DH"},
        {"YZ_引驻客户信息", "所在区域", "YZ_区域设置", "区域名称"},
        {"YZ_引驻客户信息", "从事行业", "YZ_行业设置", "行业名称"},
        {"YZ_引驻客户信息", "企业性质", "YZ_企业性质设置", "企业性质名称"},
        {"YZ_引驻客户信息", "中介公司名称", "YZ_中介公司设置", "公司名称"},
        {"YZ_引驻客户分配", "员工工号", "员工档案", "工号"},
        {"YZ_引驻客户分配", "组代号", "YZ_组表", "组代号"},
        {"YZ_引驻客户分配", "登记编号", "YZ_引驻客户信息", "登记编号"},
        {"YZ_引驻客户跟进记录", "跟进状态编号", "YZ_跟进状态设置", "状态编号"},
        {"YZ_引驻客户跟进记录", "跟进人工号", "员工档案", "工号"},
        {"YZ_引驻客户跟进记录", "登记编号", "YZ_引驻客户信息", "登记编号"},
        {"YZ_组人员设置", "员工工号", "员工档案", "工号"},
        {"YZ_组人员设置", "主职代号", "YZ_主职表", "主职代号"},
        {"YZ_意向书信息", "引驻客户信息ID", "YZ_引驻客户信息", "ID"},
        {"YZ_意向书单元信息", "意向书ID", "YZ_意向书信息", "ID"},
        {"YZ_意向书单元信息", "单元ID", "室表", "S_ID"},
        {"YZ_意向书审批情况", "岗位代号", "岗位信息new", "岗位代号"},
        {"YZ_意向书审批路径", "岗位代号", "岗位信息new", "岗位代号"},
        {"YZ_意向书审批路径设置", "管理处代号", "设置管理处", "GYD_DH"},
        {"YZ_意向金收款", "意向书ID", "YZ_意向书信息", "ID"},
        {"YZ_意向金收款", "科目编号", "财务科目", "科目代号"},
        {"室表", "L_ID", "楼表", "L_ID"},
        {"楼域范围设置", "L_ID", "楼表", "L_ID"},
        {"单元出租状态", "单元ID", "室表", "S_ID"},
        {"合同单元信息", "合同ID", "合同信息", "ID"},
        {"合同信息", "客户编号", "客户信息", "客户编号"},
        {"岗位信息new", "工号", "员工档案", "工号"},
        {"岗位信息new", "职能部门代号", "职能部门new", "职能部门编号"},
        {"岗位权限设置", "组代号", "GroupPrivilege", "GroupID"},
        {"票据", "入库单编号", "票据入库单", "入库单编号"},
        {"票据领用清单", "入库单编号", "票据入库单", "入库单编号"},
        {"SKOperator", "OperatorNum", "员工档案", "工号"},
    };
    for (const auto& [from, column, to, key] : references) {
        std::set<std::string> known;
        for (const auto& value : rows(sql("Select {} From {}", key, to))) known.insert(value);
        const auto used = rows(sql("Select Distinct {} From {} Where {} is not Null", column, from, column));
        EXPECT_FALSE(used.empty()) << from.text() << "." << column.text();
        for (const auto& value : used)
            EXPECT_TRUE(known.contains(value)) << from.text() << "." << column.text() << " = " << value;
    }
}

TEST_F(ASampleProperty, MarksAssignedCustomersAndTellsNothingOfTheFuture) {
    EXPECT_EQ(count("From YZ_引驻客户信息 A Inner Join YZ_引驻客户分配 B On A.登记编号=B.登记编号 And "
                    "A.管理处代号=B.管理处代号 Where A.分配日期 is Null"),
              0);
    const std::set<std::string> assigned = [&] {
        const auto all = rows("Select 管理处代号,登记编号 From YZ_引驻客户分配");
        return std::set<std::string>(all.begin(), all.end());
    }();
    for (const auto& customer :
         rows("Select 管理处代号,登记编号 From YZ_引驻客户信息 Where 分配日期 is not Null"))
        EXPECT_TRUE(assigned.contains(customer)) << customer;
    const auto current = rows("Select 管理处代号,登记编号 From YZ_引驻客户分配 Where 终止日期 is Null");
    EXPECT_EQ(std::set<std::string>(current.begin(), current.end()).size(), current.size())
        << "one holder each";

    EXPECT_EQ(count("From YZ_引驻客户信息 Where 登记日期>'2011-3-5'"), 0);
    EXPECT_EQ(count("From YZ_引驻客户跟进记录 Where 跟进日期>'2011-3-5'"), 0);
    EXPECT_EQ(count("From YZ_意向书审批情况 Where 审批日期>'2011-3-5 23:59:59'"), 0);
    EXPECT_EQ(rows("Select Min(登记日期) As D From YZ_引驻客户信息").front().substr(0, 7), "2009-03");
}

TEST_F(ASampleProperty, TakesItsLettersThroughEveryStage) {
    const std::string letters = "From YZ_意向书信息 ";
    const std::string approvals = "From YZ_意向书审批情况 ";
    const std::string waiting = approvals + "Where 审批日期 is Null";
    for (const std::string& some :
         {letters + "Where 提交日期 is Null", letters + "Where 提交日期 is not Null And 流转结束日期 is Null",
          letters + "Where 流转通过=1", letters + "Where 流转通过=0", letters + "Where 管理处代号='03'",
          approvals + "Where 环节序号=0", approvals + "Where 环节序号=2", waiting + " And 环节序号=0",
          waiting + " And 环节序号>0", std::string("From YZ_意向金收款 Where 处理结束=0")})
        EXPECT_GT(count(some), 0) << some;
    // One office asks in turn, one all at once, and one has no path yet, so that nothing is submitted there.
    EXPECT_EQ(rows("Select 管理处代号,单级流转 From YZ_意向书审批路径设置 Order By 管理处代号"),
              (std::vector<std::string>{"01|0", "02|1"}));
    EXPECT_EQ(count(letters + "Where 管理处代号='03' And 提交日期 is not Null"), 0);
    // A letter is at its end when and only when nobody is left to decide.
    const std::string decided = letters + "A Inner Join YZ_意向书审批情况 B On A.ID=B.意向书ID Where ";
    EXPECT_EQ(count(decided + "B.审批日期 is Null And A.流转结束日期 is not Null"), 0);
    EXPECT_EQ(count(decided + "B.同意=0 And A.流转通过=1"), 0);
    // One letter a unit, and none on a desk twice.
    for (const std::string& each :
         {"Select 岗位代号,意向书ID " + waiting,
          std::string("Select 单元ID From YZ_意向书单元信息 Where 终止日期 is Null")}) {
        const auto all = rows(each);
        EXPECT_EQ(std::set<std::string>(all.begin(), all.end()).size(), all.size()) << each;
    }
    EXPECT_EQ(count("From YZ_意向金收款 A Inner Join 报销单表 B On A.退款支付凭证编号=B.凭证编号 Where "
                    "A.处理结束=1"),
              1);
}

/// Who can log in, by the statements of the login itself.
class ItsStaff : public ASampleProperty {
  protected:
    static bool passwordIsRight(const std::string& 工号, const std::string& password) {
        return anyRow(db(), sql("Select * From 员工档案 Where 工号 ='{}' and 帐号密码='{}'", 工号, password));
    }
    static std::vector<std::string> positions(const std::string& 工号) {
        return rows(sql(
            "Select 岗位信息new.岗位代号 From 岗位员工new Inner joIn 岗位信息new on 岗位员工new.岗位代号 = "
            "岗位信息new.岗位代号 Inner joIn 职能部门new on 岗位信息new.职能部门代号 = "
            "职能部门new.职能部门编号 Inner joIn 岗位类别 on 岗位信息new.岗位类别代号 = "
            "岗位类别.岗位类别编号 Inner joIn 职能部门类别 on 职能部门new.职能部门类别代号 = "
            "职能部门类别.部门类别代号 Inner joIn 员工档案 on 岗位员工new.员工代号 = 员工档案.工号 Where "
            "岗位员工new.员工代号='{}' and 员工档案.离职日期 is null AND (岗位员工new.离岗日期 IS NULL)",
            工号));
    }
    static std::set<std::string> menus(const std::string& 岗位代号) {
        std::set<std::string> usable;
        for (auto& row : Recordset(
                 db(), sql("SELECT DISTINCT 岗位权限设置.ID , 岗位权限设置.组代号, 岗位权限设置.岗位代号, "
                           "岗位权限设置.授权, GroupPrivilege.FormName, GroupPrivilege.Popedom FROM  "
                           "岗位权限设置 INNER JOIN GroupPrivilege ON 岗位权限设置.组代号 = "
                           "GroupPrivilege.GroupID Where 授权 = 1 AND 岗位代号='{}' AND memo='{}' ORDER BY "
                           "GroupPrivilege.Popedom",
                           岗位代号, "引驻台账"))) {
            if (row["Popedom"].flag())
                usable.insert(row["FormName"].text());
            else
                usable.erase(row["FormName"].text());
        }
        return usable;
    }
};

TEST_F(ItsStaff, CanLogInToPositionsWithMenus) {
    std::size_t withTwo = 0;
    std::set<std::set<std::string>> different;
    for (const auto& line : rows("Select 工号 From 员工档案 Where 离职日期 is Null")) {
        EXPECT_TRUE(passwordIsRight(line, "hx" + line)) << line;
        EXPECT_FALSE(passwordIsRight(line, "hx")) << line;
        const auto held = positions(line);
        EXPECT_FALSE(held.empty()) << line;
        withTwo += held.size() == 2;
        for (const auto& position : held) {
            EXPECT_FALSE(menus(position).empty()) << position;
            different.insert(menus(position));
        }
    }
    EXPECT_GE(withTwo, 2U);
    EXPECT_GE(different.size(), 5U) << "privileges differ";
}

}  // namespace
}  // namespace desk
