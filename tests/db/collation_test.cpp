#include "db/embedded/collation.h"

#include <gtest/gtest.h>
#include <unicode/ucol.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <random>

namespace desk::embedded {
namespace {

/// The short way for plain texts and the library must tell the same order, also where both kinds meet.
TEST(Collation, IsTheLibrarysOrderForEveryMixtureOfTexts) {
    UErrorCode status = U_ZERO_ERROR;
    auto* reference = ucol_open("zh@collation=pinyin", &status);
    ucol_setStrength(reference, UCOL_SECONDARY);
    const std::int32_t order[] = {USCRIPT_LATIN, USCRIPT_HAN};
    ucol_setReorderCodes(reference, order, 2, &status);
    ASSERT_TRUE(U_SUCCESS(status));

    std::vector<std::string> pieces = {"\t",     "\n", "\x01", "\x7f", "é",  "e\u0301",
                                       "\u0301", "·",  "中",   "Ａ",   "，", "ß"};
    for (char c = ' '; c < 0x7f; ++c) pieces.emplace_back(1, c);
    std::mt19937 random(20110305);
    const auto text = [&] {
        std::string made;
        // Mostly plain pieces: the last ones.
        for (auto left = random() % 6; left > 0; --left)
            made += random() % 8 == 0 ? pieces[random() % 12] : pieces[12 + random() % 95];
        while (made.ends_with(' ')) made.pop_back();
        return made;
    };
    const Collation collation;
    for (int i = 0; i < 200000; ++i) {
        const auto a = text();
        const auto b = random() % 3 == 0 ? a + text() : text();
        const auto trimmedB = b.substr(0, b.find_last_not_of(' ') + 1);
        status = U_ZERO_ERROR;
        const int expected = ucol_strcollUTF8(reference, a.data(), static_cast<int>(a.size()),
                                              trimmedB.data(), static_cast<int>(trimmedB.size()), &status);
        ASSERT_EQ(std::clamp(collation.compare(a, b), -1, 1), expected) << "[" << a << "] [" << b << "]";
    }
    ucol_close(reference);
}

}  // namespace
}  // namespace desk::embedded
