#include "money/print_lines.h"

#include <gtest/gtest.h>

namespace desk {
namespace {

TEST(PrintGroups, GoTaxFirstAndThenByTypeInTheOrderOfRows) {
    std::vector<收费行票据信息> lines(8);
    const auto wait = [&](std::int16_t row, bool tax, const char* type) {
        lines[static_cast<std::size_t>(row)].行号 = row;
        lines[static_cast<std::size_t>(row)].税控 = tax;
        lines[static_cast<std::size_t>(row)].票据类型 = type;
    };
    wait(1, false, "3 收据");
    wait(2, true, "1 税控");
    wait(4, false, "2 收据");
    wait(5, false, "3 收据");
    wait(7, true, "1 税控");
    std::string all;
    for (const auto& group : 打印分组(lines)) {
        all += group.名称 + ":";
        for (const int row : group.行) all += std::to_string(row);
        all += " ";
    }
    EXPECT_EQ(all, "税控:27 3 收据:15 2 收据:4 ");
}

}  // namespace
}  // namespace desk
