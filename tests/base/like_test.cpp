#include "base/like.h"

#include <gtest/gtest.h>

#include <vector>

namespace desk {
namespace {

struct Case {
    const char* pattern;
    std::vector<const char*> fitting;
    std::vector<const char*> others;
};

class Like : public testing::TestWithParam<Case> {};

TEST_P(Like, TellsWhatFitsAndWhatDoesNot) {
    const LikePattern pattern(GetParam().pattern);
    for (const char* text : GetParam().fitting) EXPECT_TRUE(pattern.fits(text)) << text;
    for (const char* text : GetParam().others) EXPECT_FALSE(pattern.fits(text)) << text;
}

INSTANTIATE_TEST_SUITE_P(
    Patterns, Like,
    testing::Values(
        // The whole text, sign by sign; case counts, and a Han character is one sign.
        Case{"佳信A", {"佳信A"}, {"佳信a", "佳信", "信A", "佳信A座", "", "佳信AA"}}, Case{"", {""}, {"佳"}},
        Case{"佳?", {"佳信", "佳𠮷", "佳?", "佳*"}, {"佳", "佳信行", "信佳"}},
        Case{"??", {"佳信", "ab", "12"}, {"佳", "abc"}},
        // Runs, also where a first try takes too much.
        Case{"*信*", {"信", "佳信", "信行", "佳信行", "信信"}, {"佳行", ""}},
        Case{"佳*", {"佳", "佳信"}, {"信佳", ""}}, Case{"*行", {"行", "佳行", "行行"}, {"行佳", ""}},
        Case{"*ab*ab", {"abab", "ab_ab", "aabab", "abaab"}, {"ab", "aba", "abba"}},
        Case{"a**b", {"ab", "a1b"}, {"a", "b"}},
        // Digits: the ten of ASCII.
        Case{"#号", {"0号", "9号"}, {"号", "a号", "12号", "３号"}},
        Case{"*#", {"1", "佳1", "佳12"}, {"佳", "1佳", ""}},
        // Lists and ranges.
        Case{"[佳信]*", {"佳", "信行"}, {"行佳", ""}}, Case{"[a-c]", {"a", "b", "c"}, {"d", "A", "-", ""}},
        Case{"[a-cx0-4]", {"a", "c", "x", "0", "4"}, {"d", "w", "5", "-"}}, Case{"[-a]", {"-", "a"}, {"b"}},
        Case{"[a-]", {"-", "a"}, {"b"}}, Case{"[c-a]", {}, {"a", "b", "c", "-"}},
        Case{"[一-龥]", {"佳", "一"}, {"a", "1"}}, Case{"[*?#]", {"*", "?", "#"}, {"a", "1"}},
        Case{"[[]a", {"[a"}, {"a", "]a"}}, Case{"a[b]c[d]", {"abcd"}, {"abc", "ab[d]"}},
        // All others.
        Case{"[!a-c]", {"d", "A", "佳", "!"}, {"a", "b", "c", ""}}, Case{"[!佳]信", {"安信"}, {"佳信", "信"}},
        Case{"[!!]", {"a"}, {"!"}}, Case{"[!]", {"!"}, {"a", ""}}, Case{"[a!]", {"a", "!"}, {"b"}},
        Case{"!a", {"!a"}, {"b", "a"}},
        // Nothing in a list, and a list that has no end.
        Case{"佳[]信", {"佳信"}, {"佳[]信", "佳信信"}}, Case{"佳[信", {"佳[信"}, {"佳信", "佳"}},
        Case{"[", {"["}, {"a", ""}}, Case{"信]", {"信]"}, {"信"}}));

}  // namespace
}  // namespace desk
