#include "db/embedded/collation.h"

#include <gtest/gtest.h>
#include <unicode/ucol.h>
#include <unicode/uscript.h>

#include <random>

#include "filled_database.h"

namespace desk::embedded {
namespace {

int sign(int order) {
    return (order > 0) - (order < 0);
}

TEST(Collation, IgnoresCaseWidthAndTrailingBlanks) {
    const Collation collation;
    for (const auto& [a, b] : std::vector<std::pair<std::string, std::string>>{{"Abc", "aBC"},
                                                                               {"01", "01   "},
                                                                               {"", "  "},
                                                                               {"", "\u3000 \u3000"},
                                                                               {"01", "01\u3000"},
                                                                               {"东塔 \u3000", "东塔"},
                                                                               {"ＡＢ１", "ab1"},
                                                                               {"东塔A", "东塔a "},
                                                                               {"x。", "x。 "}}) {
        EXPECT_EQ(collation.compare(a, b), 0) << a << " " << b;
        EXPECT_EQ(collation.compare(b, a), 0) << a << " " << b;
    }
    EXPECT_NE(collation.compare(" 01", "01"), 0);
    EXPECT_NE(collation.compare("\u300001", "01"), 0);
    EXPECT_EQ(collation.compare("东\u3000塔", "东 塔"), 0);
    EXPECT_NE(collation.compare("e", "é"), 0);
    EXPECT_NE(collation.compare("东塔", "西塔"), 0);
}

TEST(Collation, PutsDigitsBeforeLatinBeforeHanByPinyin) {
    const Collation collation;
    const std::vector<std::string> inOrder = {"",   " a",   "-1",   "0",    "10",   "1a",   "2",
                                              "9",  "A",    "a1",   "aé",   "B",    "z",    "Z1",
                                              "阿", "安居", "佳信", "静安", "浦东", "网络", "远东"};
    for (std::size_t i = 1; i < inOrder.size(); ++i) {
        EXPECT_LT(collation.compare(inOrder[i - 1], inOrder[i]), 0) << inOrder[i - 1] << " " << inOrder[i];
        EXPECT_GT(collation.compare(inOrder[i], inOrder[i - 1]), 0) << inOrder[i - 1] << " " << inOrder[i];
    }
}

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
        ASSERT_EQ(sign(collation.compare(a, b)), expected) << "[" << a << "] [" << b << "]";
    }
    ucol_close(reference);
}

TEST(Collation, RulesEverywhereInStatements) {
    EmptyDatabase db;
    db.connection.execute(
        "Insert Into YZ_区域设置 Values ('Pudong ','a'),('浦东',''),('12',''),('静安','b'),('2','')");
    EXPECT_EQ(db.row("Select 说明 From YZ_区域设置 Where 区域名称='PUDONG'"), "a");
    EXPECT_EQ(db.row("Select 说明 From YZ_区域设置 Where 区域名称 In ('x','pudong')"), "a");
    EXPECT_EQ(db.row("Select 区域名称 From YZ_区域设置 Order By 区域名称"), "12\n2\nPudong \n静安\n浦东");
    EXPECT_EQ(db.row("Select 区域名称 From YZ_区域设置 Order By Len(区域名称),区域名称"),
              "2\n12\n静安\n浦东\nPudong ");
    EXPECT_EQ(db.row("Select Max(区域名称) From YZ_区域设置"), "浦东");
    EXPECT_EQ(db.row("Select 区域名称 From YZ_区域设置 Where 区域名称 Between '3' And 'q'"), "Pudong ");
    // Texts that are made, not read from a column.
    EXPECT_EQ(db.row("Select 1 Where 'A'+'b ' = 'aB'"), "1");
    EXPECT_EQ(db.row("Select 说明 From YZ_区域设置 Where 区域名称+'x'='pudong X'"), "a");
    EXPECT_EQ(
        db.row("Select Distinct Case When 说明='a' Then 'x' Else 'X ' End As 甲 From YZ_区域设置").size(),
        1U);
    EXPECT_EQ(db.row("Select Count(*) From (Select Case When 说明='a' Then 'x' Else 'X ' End As 甲 From "
                     "YZ_区域设置) t "
                     "Where t.甲='x'"),
              "5");
}

/// In a join without an index SQLite looks texts up in one that it makes for the occasion.
TEST(Collation, JoinsEqualTextsWhateverTheirBytes) {
    EmptyDatabase db;
    db.connection.execute("Insert Into YZ_区域设置 Values ('甲','01'),('乙','02'),('丙','03'),('丁','A ')");
    db.connection.execute("Insert Into YZ_媒体设置 Values ('a','01 '),('b','０２'),('c','03'),('d','a')");
    EXPECT_EQ(db.row("Select 区域名称,媒体名称 From YZ_区域设置 Inner Join YZ_媒体设置 On "
                     "YZ_区域设置.说明=YZ_媒体设置.说明 Order By YZ_媒体设置.媒体名称"),
              "甲|a\n乙|b\n丙|c\n丁|d");
    db.connection.execute("Insert Into 设置管理处 (GYD_DH) Values ('01'),('02'),('03')");
    db.connection.execute(
        "Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values ('D','01 "
        "'),('D','０２'),('D','03')");
    EXPECT_EQ(db.row("Select GYD_DH From 设置管理处 Inner Join 职能部门对应管理项目设置 On "
                     "设置管理处.GYD_DH=职能部门对应管理项目设置.管理处代号 Where "
                     "职能部门对应管理项目设置.职能部门编号='d' Order by len(GYD_DH),GYD_DH"),
              "01\n02\n03");
}

}  // namespace
}  // namespace desk::embedded
