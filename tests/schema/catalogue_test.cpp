#include <gtest/gtest.h>

#include <set>

#include "base/text.h"
#include "schema/catalogue.h"
#include "schema/definition.h"

namespace desk::schema {
namespace {

TEST(Catalogue, HasNoNameTwice) {
    std::set<std::string_view> names;
    std::set<std::string_view> indexes;
    for (const auto& table : tables()) {
        EXPECT_TRUE(names.insert(table.name).second) << table.name;
        std::set<std::string_view> columns;
        for (const auto& column : table.columns)
            EXPECT_TRUE(columns.insert(column.name).second) << column.name;
        for (const auto& index : table.indexes) EXPECT_TRUE(indexes.insert(index.name).second) << index.name;
    }
}

TEST(Catalogue, NamesInIndexesAndCopiesAreColumns) {
    for (const auto& table : tables()) {
        for (const auto& column : table.columns)
            EXPECT_TRUE(column.copyOf.empty() || table.column(column.copyOf) != nullptr) << column.name;
        for (const auto& index : table.indexes)
            for (auto name : split(index.columns, ',')) {
                if (name.starts_with("len(")) name = name.substr(4, name.size() - 5);
                EXPECT_NE(table.column(name), nullptr) << table.name << " " << name;
            }
    }
}

/// Rows that only their meaning keeps apart are found again by all that they hold.
TEST(Catalogue, HasAKeyForEveryTable) {
    for (const auto& table : tables()) {
        const auto address = table.address();
        EXPECT_EQ(address.unique, table.key.empty()) << table.name;
        EXPECT_FALSE(address.columns.empty()) << table.name;
        for (const auto* column : address.columns) EXPECT_NE(column, nullptr) << table.name;
        if (table.key.empty()) continue;
        for (const auto& name : split(table.key, ',')) EXPECT_NE(table.column(name), nullptr) << name;
    }
    const auto columnsOf = [](std::string_view name) {
        std::vector<std::string> names;
        for (const auto* column : table(name)->address().columns) names.emplace_back(column->name);
        return join(names, ",");
    };
    EXPECT_EQ(columnsOf("YZ_意向书信息"), "ID");
    EXPECT_EQ(columnsOf("YZ_组表"), "组代号");
    EXPECT_EQ(columnsOf("YZ_组对应管理项目设置"), "组代号,管理处代号,设置日期,终止日期");
}

TEST(Catalogue, FindsNamesWhateverTheirCase) {
    ASSERT_NE(table("yz_跟进状态设置"), nullptr);
    ASSERT_NE(table("setupsfxm"), nullptr);
    EXPECT_EQ(table("报销单明细")->column("CZYDH")->name, "CzyDH");
    EXPECT_EQ(table("没有"), nullptr);
}

/// Two seats may draw the same number, and an entry may be renamed to another's name.
TEST(Catalogue, LeavesDuplicatesToTheScreens) {
    for (const auto name : {"YZ_引驻客户信息", "YZ_意向书信息", "YZ_区域设置", "YZ_行业设置", "票据"})
        for (const auto& index : table(name)->indexes) EXPECT_FALSE(index.unique) << index.name;
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
