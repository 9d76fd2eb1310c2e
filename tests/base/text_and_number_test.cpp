#include <gtest/gtest.h>

#include "base/date.h"
#include "base/number.h"
#include "base/text.h"
#include "support/failures.h"

namespace desk {
namespace {

TEST(Text, CodedEntriesSplitAtTheFirstBlankOnly) {
    EXPECT_EQ(codeBeforeBlank("01 东 塔"), "01");
    EXPECT_EQ(nameAfterBlank("01 东 塔"), "东 塔");
    EXPECT_EQ(codeBeforeBlank("01"), "01");
    EXPECT_EQ(nameAfterBlank("01"), "");
    EXPECT_EQ(codeBeforeBlank(" 东塔"), "");
}

TEST(Text, TrimmingTakesBlanksAndNothingElse) {
    EXPECT_EQ(trimmed("  a b  "), "a b");
    EXPECT_EQ(trimmed("   "), "");
    EXPECT_EQ(trimmed("\ta\n"), "\ta\n");
}

TEST(Text, SplittingKeepsEmptyParts) {
    EXPECT_EQ(split("a,,b,", ','), (std::vector<std::string>{"a", "", "b", ""}));
    EXPECT_TRUE(split("", ',').empty());
}

TEST(Text, TheMailboxWordIsGbk) {
    EXPECT_EQ(toGbk("注销"), "\xD7\xA2\xCF\xFA");
}

TEST(Number, ReadsTheHeadOfAText) {
    EXPECT_EQ(val("120.5平方米"), 120.5);
    EXPECT_EQ(val(" 1 200"), 1200);
    EXPECT_EQ(val("约100"), 0);
    EXPECT_EQ(val("-3e2x"), -300);
    EXPECT_EQ(val("1.2.3"), 1.2);
    EXPECT_EQ(val(""), 0);
    EXPECT_EQ(val("5e"), 5);
}

TEST(Number, HalvesGoToTheEvenNeighbour) {
    EXPECT_EQ(roundHalfEven(0.5), 0);
    EXPECT_EQ(roundHalfEven(1.5), 2);
    EXPECT_EQ(roundHalfEven(2.5), 2);
    EXPECT_EQ(roundHalfEven(-1.5), -2);
    EXPECT_EQ(roundHalfEven(-2.5), -2);
}

TEST(Number, AnExponentIsReadWhereADigitStandsBeforeIt) {
    const struct {
        const char* text;
        double value;
    } heads[] = {{"1e3", 1000}, {"1E+2元", 100}, {"25d-1", 2.5}, {"1.5e2.7", 150}, {"2e2e2", 200},
                 {"e5", 0},     {".e5", 0},      {"1 e 2", 100}, {"3e", 3},        {"4e+", 4},
                 {"-.5e1", -5}, {"5-3", 5},      {"1e-", 1}};
    for (const auto& each : heads) EXPECT_EQ(val(each.text), each.value) << each.text;
}

TEST(Text, OneLineIsTakenOfAPaste) {
    const struct {
        const char* pasted;
        const char* line;
    } pastes[] = {{"Bund", "Bund"},
                  {"Bund\r\nEast", "Bund"},
                  {"Bund\rEast", "Bund"},
                  {"\r\n\nBund \t \n", "Bund"},
                  {" a\tb ", " a b"},
                  {"\n", ""},
                  {"", ""}};
    for (const auto& each : pastes) EXPECT_EQ(firstLine(each.pasted), each.line) << each.pasted;
}

TEST(Number, NarrowConversionsFailInsteadOfWrapping) {
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_EQ(failureOf([] { toInt16(32767.5); }), failure::overflow);
    EXPECT_EQ(failureOf([] { toInt16("40000"); }), failure::overflow);
    EXPECT_EQ(failureOf([] { toInt16("一"); }), failure::typeMismatch);
    EXPECT_EQ(failureOf([] { toInt32(""); }), failure::typeMismatch);
    EXPECT_EQ(failureOf([] { toInt32(2147483648.0); }), failure::overflow);
}

TEST(Number, PicturesOfZerosPadAndRound) {
    EXPECT_EQ(formatNumber(123, "000000"), "000123");
    EXPECT_EQ(formatNumber(12345678, "000000"), "12345678");
    EXPECT_EQ(formatNumber(1.005, "0.00"), "1.01");
    EXPECT_EQ(formatNumber(0.5, "0.00"), "0.50");
    EXPECT_EQ(formatNumber(-0.001, "0.00"), "0.00");
    EXPECT_EQ(formatNumber(-2.5, "0.0"), "-2.5");
    EXPECT_EQ(numberText(0.1 + 0.2), "0.3");
    EXPECT_EQ(numberText(1200), "1200");
}

TEST(Date, ReadsWhatPeopleAndServersWrite) {
    const DateTime day(2011, 3, 5);
    for (const auto* text : {"2011-3-5", "2011/3/5", "2011-03-05", "20110305", " 2011-3-5 ",
                             "2011-03-05 00:00:00", "2011-03-05 00:00:00.000"})
        EXPECT_EQ(parseDate(text), day) << text;
    EXPECT_EQ(parseDate("2011-3-5 9:07"), DateTime(day.day, std::chrono::seconds(9 * 3600 + 7 * 60)));
    for (const auto* text :
         {"", "2011-2-29", "2011-13-1", "2011/3-5", "昨天", "2011-3", "2011-3-5 25:00", "2011-3-5x"})
        EXPECT_FALSE(parseDate(text)) << text;
    EXPECT_TRUE(parseDate("2012-2-29"));
}

TEST(Date, PicturesTellMinutesFromMonths) {
    const DateTime moment(std::chrono::year(2011) / 3 / 5, std::chrono::hours(14) + std::chrono::minutes(9));
    EXPECT_EQ(isoStamp(moment), "2011-03-05 14:09:00");
    EXPECT_EQ(formatDate(moment, "yyyy年mm月dd日"), "2011年03月05日");
    EXPECT_EQ(formatDate(moment, "YYYY/M/D"), "2011/3/5");
    EXPECT_EQ(formatDate(moment, "YYYY/MM/DD HH:mm:SS"), "2011/03/05 14:09:00");
    EXPECT_EQ(DateTime(2011, 2, 28).plusDays(1), DateTime(2011, 3, 1));
}

}  // namespace
}  // namespace desk
