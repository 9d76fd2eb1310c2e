#include <gtest/gtest.h>

#include "base/money.h"
#include "support/failures.h"

namespace desk {
namespace {

TEST(Money, HasFourPlacesAndRoundsHalvesToTheEvenNeighbour) {
    EXPECT_EQ(Money::of(12.5).text(), "12.5");
    EXPECT_EQ(Money::of(-0.05).text(), "-0.05");
    EXPECT_EQ(Money::of(0.00005).text(), "0");
    EXPECT_EQ(Money::of(0.00015).text(), "0.0002");
    EXPECT_EQ(Money::of(1.00025).text(), "1.0002");
    EXPECT_EQ(Money::of(1.00035).text(), "1.0004");
    EXPECT_EQ(Money::of(-1.00035).text(), "-1.0004");
    EXPECT_EQ(Money().text(), "0");
    EXPECT_EQ(Money::of(1200).text(), "1200");
}

TEST(Money, AddsUpExactly) {
    Money sum;
    for (int i = 0; i < 10000; ++i) sum += Money::of(0.1);
    EXPECT_EQ(sum, Money::of(1000));
    sum += Money::of(-1000.0001);
    EXPECT_EQ(sum.text(), "-0.0001");
}

TEST(Money, ReadsWholeTextsOnly) {
    EXPECT_EQ(Money::of(" 100.25 ").text(), "100.25");
    for (const char* none : {"", "12元", "元"})
        EXPECT_EQ(failureOf([&] { Money::of(std::string_view(none)); }), failure::typeMismatch) << none;
}

TEST(Money, OverflowsWithANumberOfItsOwn) {
    EXPECT_EQ(failureOf([] { Money::of(1e15); }), failure::overflow);
    EXPECT_EQ(failureOf([] {
                  Money most = Money::of(9.2e14);
                  most += most;
              }),
              failure::overflow);
}

}  // namespace
}  // namespace desk
