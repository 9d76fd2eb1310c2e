#include "schema/catalogue.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "schema/definition.h"

namespace desk::schema {
namespace {

/// Rows that only their meaning keeps apart are found again by all that they hold.
TEST(Catalogue, HasAKeyForEveryTable) {
    const auto columnsOf = [](const Table& table) {
        std::vector<std::string> names;
        for (const auto* column : table.address().columns) names.emplace_back(column->name);
        return join(names, ",");
    };
    for (const auto& table : tables()) {
        EXPECT_EQ(table.address().unique, table.key.empty()) << table.name;
        EXPECT_NE(columnsOf(table), "") << table.name;
        for (const auto& name : split(table.key, ',')) EXPECT_NE(table.column(name), nullptr) << name;
    }
    EXPECT_EQ(columnsOf(*table("yz_意向书信息")), "ID");
    EXPECT_EQ(columnsOf(*table("YZ_组表")), "组代号");
    EXPECT_EQ(columnsOf(*table("YZ_组对应管理项目设置")), "组代号,管理处代号,设置日期,终止日期");
}

TEST(Definition, ForTheServerHasNoIndexByLength) {
    std::size_t tableCount = 0;
    for (const auto& statement : definition(Dialect::sqlServer)) {
        EXPECT_EQ(statement.find("len("), std::string::npos) << statement;
        EXPECT_EQ(statement.find("COLLATE desk"), std::string::npos) << statement;
        tableCount += statement.starts_with("CREATE TABLE") ? 1 : 0;
    }
    EXPECT_EQ(tableCount, tables().size());
}

}  // namespace
}  // namespace desk::schema
