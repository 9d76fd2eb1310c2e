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
    const auto isMade = [](const std::string& statement) {
        return embedded::translate(statement, Rows::forwardOnly).sql.find("GROUP BY \"d\"") !=
               std::string::npos;
    };
    auto steps = stepsOf("grouped_joins.txt");
    for (auto& step : steps)
        for (const auto* where : {"", " Where 跟进状态编号='02'"}) {
            SCOPED_TRACE(step.asked + where);
            const auto with = [&](const char* having) {
                return fmt::format(
                    fmt::runtime(step.asked),
                    fmt::arg("latest", fmt::format("(Select 管理处代号,登记编号,Max(跟进日期) As 日期,"
                                                   "Count(*) As 数 From YZ_引驻客户跟进记录 d{} "
                                                   "Group By 管理处代号,登记编号{}) A",
                                                   where, having)));
            };
            const auto made = with(" Having Count(*)>0");
            step.told = {isMade(with("")) ? "made" : "looked into"};
            EXPECT_TRUE(isMade(made));
            if (step.told.front() == "made") continue;
            const auto rows = diary.sorted(with(""));
            EXPECT_FALSE(rows.empty());
            EXPECT_EQ(rows, diary.sorted(made));
        }
    compare("grouped_joins.txt", steps);
}

}  // namespace
}  // namespace desk
