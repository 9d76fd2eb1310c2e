#include "db/value.h"

#include <gtest/gtest.h>

#include "support/failures.h"

namespace desk {
namespace {

TEST(Value, IsReadAsAnotherKindWhereItCanBe) {
    EXPECT_EQ(Value().number(), 0);
    EXPECT_EQ(Value().integer(), 0);
    EXPECT_FALSE(Value().flag());
    EXPECT_TRUE(Value("12").flag());
    EXPECT_EQ(Value(2.5).integer(), 2);
    EXPECT_EQ(Value("2011/3/5").moment(), DateTime(2011, 3, 5));
    EXPECT_EQ(failureOf([] { Value().moment(); }), failure::invalidNull);
    EXPECT_EQ(failureOf([] { Value("盛远").number(); }), failure::typeMismatch);
    EXPECT_EQ(failureOf([] { Value("盛远").moment(); }), failure::typeMismatch);
    EXPECT_EQ(failureOf([] { Value(DateTime(2011, 3, 5)).number(); }), failure::typeMismatch);
}

}  // namespace
}  // namespace desk
