#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "db/embedded/translation.h"
#include "filled_database.h"

namespace desk {
namespace {

/// Customers and their diary, with numbers that are equal but not alike, entries of one day, customers of one
/// number, and keys that are missing.
struct Diary : EmptyDatabase {
    Diary() {
        std::mt19937 random(20110305);
        const auto any = [&](std::initializer_list<const char*> texts) {
            return texts.begin()[random() % texts.size()];
        };
        connection.begin();
        for (int i = 0; i < 120; ++i)
            connection.execute(
                sql("Insert Into YZ_引驻客户信息 (管理处代号,登记编号,登记日期,公司名称) Values "
                    "('{}','{}','2011-{}-1','{}')",
                    any({"01", "01 ", "０１", "02"}), any({"1", "１", "2", "3 ", "3", "4", "5"}),
                    random() % 6 + 1, any({"甲", "乙"})));
        for (int i = 0; i < 200; ++i)
            connection.execute(
                sql("Insert Into YZ_引驻客户跟进记录 (管理处代号,登记编号,跟进日期,跟进状态编号) Values "
                    "('{}','{}',{},{})",
                    any({"01", "01 ", "02", "03"}), any({"1", "2", "2 ", "3", "4", "6"}),
                    literalOrNull(any({"", "2011-7-1", "2011-7-2", "2011-7-3", "2011-7-4"})),
                    literalOrNull(any({"01", "02", "０２", ""}))));
        connection.execute("Insert Into YZ_跟进状态设置 Values ('01','初访',255,''),('02','签约',65280,'')");
        connection.commit();
    }

    std::vector<std::string> sorted(const std::string& statement) {
        auto found = rows(statement);
        std::sort(found.begin(), found.end());
        return found;
    }
};

/// Where the grouped table is looked into instead of made, the rows stay the same. A Having that always holds
/// keeps it from being looked into.
TEST(GroupedJoin, GivesTheRowsOfTheGroupedTable) {
    Diary diary;
    const std::string latest =
        "(Select 管理处代号,登记编号,Max(跟进日期) As 日期,Count(*) As 数 From YZ_引驻客户跟进记录 d{} Group "
        "By "
        "管理处代号,登记编号{}) A";
    const std::vector<std::string> statements = {
        "Select e.ID,l.ID From YZ_引驻客户跟进记录 e Inner Join {} On e.管理处代号=A.管理处代号 And "
        "e.登记编号=A.登记编号 And e.跟进日期=A.日期 Inner Join YZ_引驻客户信息 l On "
        "A.管理处代号=l.管理处代号 "
        "And A.登记编号=l.登记编号",
        "Select l.ID From {},YZ_引驻客户信息 l Where l.管理处代号=A.管理处代号 And l.登记编号=A.登记编号 And "
        "'2011-7-3'<A.日期",
        "Select l.ID From YZ_引驻客户信息 l Inner Join {} On l.管理处代号=A.管理处代号 And "
        "l.登记编号=A.登记编号 "
        "Where A.日期>=l.登记日期 And A.日期<>'2011-7-3' And l.公司名称='甲'",
        "Select s.状态编号,Count(*) As n From (Select Distinct e.ID,e.跟进状态编号,l.登记日期 From "
        "YZ_引驻客户跟进记录 e Inner Join {} On e.管理处代号=A.管理处代号 And e.登记编号=A.登记编号 And "
        "e.跟进日期=A.日期 Inner Join YZ_引驻客户信息 l On A.管理处代号=l.管理处代号 And "
        "A.登记编号=l.登记编号) B "
        "Inner Join YZ_跟进状态设置 s On B.跟进状态编号=s.状态编号 Where B.登记日期 Between '2011-2-1' And "
        "'2011-4-1' Group By s.状态编号",
        "Select l.ID From YZ_引驻客户信息 l Where l.ID In (Select k.ID From YZ_引驻客户信息 k,{} Where "
        "k.管理处代号=A.管理处代号 And k.登记编号=A.登记编号 And A.日期='2011-7-4')"};
    for (const auto& statement : statements)
        for (const auto* where : {"", " Where 跟进状态编号='02'"}) {
            const auto with = [&](const char* having) {
                return fmt::format(fmt::runtime(statement), fmt::format(fmt::runtime(latest), where, having));
            };
            const auto lookedUp = with("");
            const auto made = with(" Having Count(*)>0");
            EXPECT_EQ(embedded::translate(lookedUp, Rows::forwardOnly).sql.find("GROUP BY \"d\""),
                      std::string::npos)
                << lookedUp;
            EXPECT_NE(embedded::translate(made, Rows::forwardOnly).sql.find("GROUP BY \"d\""),
                      std::string::npos);
            const auto rows = diary.sorted(lookedUp);
            EXPECT_FALSE(rows.empty()) << lookedUp;
            EXPECT_EQ(rows, diary.sorted(made)) << lookedUp;
        }
}

/// Where something else is asked of it, it is made.
TEST(GroupedJoin, IsLeftWhereItsRowsAreNeeded) {
    Diary diary;
    const std::string head = "Select l.ID From YZ_引驻客户信息 l ";
    const std::string grouped =
        "(Select 管理处代号,登记编号,Max(跟进日期) As 日期,Count(*) As 数 From YZ_引驻客户跟进记录 Group By "
        "管理处代号,登记编号) A ";
    const std::string keys = "On l.管理处代号=A.管理处代号 And l.登记编号=A.登记编号 ";
    for (const auto& statement :
         {"Select A.日期 From YZ_引驻客户信息 l Inner Join " + grouped + keys + "And A.日期='2011-7-4'",
          head + "Left Join " + grouped + keys + "And A.日期='2011-7-4'",
          head + "Inner Join " + grouped + "On l.管理处代号=A.管理处代号 And A.日期='2011-7-4'",
          head + "Inner Join " + grouped + keys, head + "Inner Join " + grouped + keys + "And A.数=2",
          head + "Inner Join " + grouped + keys + "And (A.日期='2011-7-4' Or A.登记编号='1')",
          head + "Inner Join " + grouped + keys + "And A.日期 Is Null",
          head + "Inner Join " + grouped + keys + "And A.日期='2011-7-4' Order By A.登记编号"})
        EXPECT_NE(embedded::translate(statement, Rows::forwardOnly).sql.find("GROUP BY"), std::string::npos)
            << statement;
}

}  // namespace
}  // namespace desk
