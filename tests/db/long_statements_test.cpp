#include <gtest/gtest.h>

#include "filled_database.h"

namespace desk {
namespace {

class LongStatements : public testing::Test, protected FilledDatabase {};

/// `piece` that often.
std::string repeated(const std::string& piece, int times) {
    return join(std::vector<std::string>(static_cast<std::size_t>(times), piece), "");
}

TEST_F(LongStatements, MayHaveChainsOfAnyLength) {
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
}

TEST_F(LongStatements, AreRefusedWhereTheyAreTooDeepForTheStack) {
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

TEST_F(LongStatements, AreNotTheOnesWithoutAWord) {
    for (const auto* wrong : {"", "   ", "Select \xff"})
        EXPECT_EQ(failureOf([&] { connection.execute(wrong); }), failure::wrongStatement) << wrong;
}

}  // namespace
}  // namespace desk
