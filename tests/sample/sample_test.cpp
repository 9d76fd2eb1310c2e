#include "sample/sample.h"

#include <gtest/gtest.h>

#include <set>

#include "base/text.h"
#include "db/recordset.h"
#include "schema/catalogue.h"
#include "support/cases.h"

namespace desk {
namespace {

const DateTime today(2011, 3, 5);

Connection sampleDatabase(const sample::Size& size) {
    Connection connection;
    connection.open("Initial Catalog=':memory:';Data Source='(embedded)'", std::chrono::seconds(1));
    sample::fill(connection, size, today);
    return connection;
}

/// All rows of a statement, fields joined by "|".
std::vector<std::string> rowsOf(Connection& connection, const std::string& statement) {
    std::vector<std::string> rows;
    for (auto& row : Recordset(connection, statement)) {
        std::vector<std::string> fields;
        for (int column = 0; column < row.columnCount(); ++column)
            fields.push_back(row[column].isNull() ? "NULL" : row[column].text());
        rows.push_back(join(fields, "|"));
    }
    return rows;
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

TEST(SampleData, IsTheSameForTheSameSeedAndIsNotPutIntoAFilledDatabase) {
    Connection one = sampleDatabase(small());
    Connection two = sampleDatabase(small());
    sample::Size other = small();
    other.seed = 2;
    Connection three = sampleDatabase(other);
    const auto rows = everything(one);
    EXPECT_GT(rows.size(), 1000U);
    EXPECT_EQ(rows, everything(two));
    EXPECT_NE(rows, everything(three));
    EXPECT_ANY_THROW(sample::fill(one, small(), today));
    EXPECT_EQ(rows, everything(one));
}

TEST(SampleData, HasNothingThatTheSmallestSizeCannotHave) {
    sample::Size least;
    least.leads = sample::leadLimits().least;
    least.units = sample::unitLimits().least;
    least.staff = sample::staffLimits().least;
    least.years = sample::yearLimits().least;
    Connection connection = sampleDatabase(least);
    EXPECT_TRUE(rowsOf(connection, "Select * From YZ_引驻客户信息").empty());
    EXPECT_EQ(rowsOf(connection, "Select * From 员工档案").size(), static_cast<std::size_t>(least.staff));
    EXPECT_EQ(rowsOf(connection, "Select 组代号 From YZ_组人员设置 Where 终止日期 is Null").size(), 4U + 1U);
}

TEST(SampleData, IsAsTheFileTells) {
    Connection database = sampleDatabase({});
    const auto rows = [&](const std::string& statement) { return rowsOf(database, "Select " + statement); };
    for (const auto& [where, fields] : casesIn("property.txt")) {
        const auto& kind = fields.at(0);
        const auto& about = fields.at(1);
        if (kind == "count") {
            const auto count = std::stol(rows("Count(*) As SL " + about).front());
            const auto& expected = fields.at(2);
            const bool least = expected.starts_with('>');
            EXPECT_TRUE(least ? count > std::stol(expected.substr(1)) : count == std::stol(expected))
                << where << " " << count;
        } else if (kind == "shows") {
            EXPECT_EQ(join(rows(about), " "), fields.at(2)) << where;
        } else {
            const auto all = rows(about);
            std::set<std::string> different(all.begin(), all.end());
            different.erase("NULL");
            EXPECT_FALSE(different.empty()) << where;
            if (kind == "refers") {
                for (const auto& known : rows(fields.at(2))) different.erase(known);
                EXPECT_TRUE(different.empty())
                    << where << " " << join({different.begin(), different.end()}, " ");
            } else {
                EXPECT_EQ(kind, "once") << where;
                EXPECT_EQ(different.size(), all.size()) << where;
            }
        }
    }
}

}  // namespace
}  // namespace desk
