#include "db/statement.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "db/tsql/lexer.h"
#include "filled_database.h"

namespace desk {
namespace {

using namespace std::string_literals;
using tsql::TokenKind;
using tsql::tokens;

const std::vector<std::string> hostile = {
    "'",       "''",          "'''",
    "O'Brien", "' or '1'='1", "x'; Delete From YZ_组表 --",
    "%",       "[",           "--",
    "/*",      "\"",          "{}",
    "{",       "\\'",         std::string("a\0'b", 4),
    "",        "𠮷㐀'",       std::string(4000, '\''),
};

TEST(AStatement, StaysAsItIsForValuesWithoutAQuote) {
    EXPECT_EQ(sql("Select  * From {} Where a='{}'AND b=N'{}' and c Like ('%{}%') And d={}", Name("YZ_组表"),
                  "甲 ", std::string("%_[--"), std::string_view("{}"), 12),
              "Select  * From YZ_组表 Where a='甲 'AND b=N'%_[--' and c Like ('%{}%') And d=12");
    EXPECT_EQ(sql("Select 'it''s' From t Where a='{}'", "x"), "Select 'it''s' From t Where a='x'");
    EXPECT_EQ(sql("Values ({},{},{},'2011-{}')", -5, 1234.5, std::int64_t{1} << 40, 7u),
              "Values (-5,1234.5,1099511627776,'2011-7')");
    EXPECT_EQ(sql("Values ({})", 0.1 + 0.2), "Values (0.3)");
}

TEST(AStatement, TakesPiecesThatWereMadeForIt) {
    const Fragment latest = fragment("Select Max(b) From {} Where c='{}'", Name("t"), "O'Brien");
    EXPECT_EQ(sql("Select * From ({}) A", latest),
              "Select * From (Select Max(b) From t Where c='O''Brien') A");
    EXPECT_EQ(sql("a In ({} )", literals({"1", "O'B", ""})), "a In ('1','O''B','' )");
    EXPECT_EQ(sql("a In ({})", literals({})), "a In ()");
    EXPECT_EQ(sql("a In({})", numerals({"1", "20"})), "a In(1,20)");
    EXPECT_EQ(sql("a={},b={}", literalOrNull(""), literalOrNull("it's")), "a=NULL,b='it''s'");
    EXPECT_EQ(sql("{}", joined({fragment("a='{}'", "1"), fragment("b={}", 2)}, fragment(" or "))),
              "a='1' or b=2");
}

TEST(AStatement, TakesATextForANumberOnlyIfItIsOne) {
    for (const char* number : {"0", "12", "-5", "+5", "1.50", ".5", "5.", "1e3", "2.5E-3", " 7 "})
        EXPECT_EQ(sql("ID={}", numeral(number)), std::string("ID=") + number);
    for (const std::string& text : hostile)
        EXPECT_EQ(failureOf([&] { numeral(text); }), failure::wrongStatement) << text;
    for (const char* text : {"1 or 1=1", "1;", "1--", "- 1", "--1", "1.2.3", "1e", "e5", ".", "0x10", "１",
                             "1'", "1\n", "NULL", "5 5"})
        EXPECT_EQ(failureOf([&] { numeral(text); }), failure::wrongStatement) << text;
    EXPECT_EQ(failureOf([] { numerals({"1", "2) or (1=1"}); }), failure::wrongStatement);
    for (const double none : {std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_EQ(failureOf([&] { sql("ID={}", none); }), failure::wrongStatement);
}

/// As the lexer sees it: one literal goes in, one literal with the same text comes out.
void expectKept(const std::string& text) {
    const auto found =
        tokens(sql("a='{}' N'%{}%''{}''{}' And b In ({})", text, text, text, text, literals({text, "x"})));
    ASSERT_EQ(found.size(), 13U) << text;
    EXPECT_EQ(found[2].text, text);
    EXPECT_EQ(found[3].text, "%" + text + "%'" + text + "'" + text);
    EXPECT_EQ(found[3].kind, TokenKind::text);
    EXPECT_EQ(found[8].text, text);
}

/// Texts of the signs that mean something to a statement, in every mixture.
TEST(AStatement, KeepsATextInItsLiteral) {
    for (const std::string& text : hostile) expectKept(text);
    const std::string signs = "'\"-/*[]{};%N\\\n 1"s + '\0';
    std::mt19937 random(20110305);
    for (int i = 0; i < 5000; ++i) {
        std::string text;
        for (auto length = random() % 12; length > 0; --length) text += signs[random() % signs.size()];
        ASSERT_NO_FATAL_FAILURE(expectKept(text));
    }
}

class StoredTexts : public testing::Test, protected FilledDatabase {};

/// By way of a statement, of a field and of a comparison, each text is found again, alone and as it was.
TEST_F(StoredTexts, ComeBackAsTheyWere) {
    for (const std::string& text : hostile) {
        connection.execute(
            sql("Insert Into YZ_引驻客户信息 (管理处代号,登记编号,备注) Values ('*','*','{}')", text));
        const auto own = sql("Select * From YZ_引驻客户信息 Where 管理处代号='*' And 备注=N'{}'", text);
        Recordset lead(connection, own, Rows::updatable);
        ASSERT_FALSE(lead.atEnd()) << text;
        EXPECT_EQ(lead["备注"].text(), text);
        lead["备注"] = text + "x";
        lead.update();
        const auto changed = sql("备注='{}x'", text);
        EXPECT_EQ(row("Select 备注 From YZ_引驻客户信息 Where " + changed), text + "x");
        EXPECT_EQ(connection.execute("Delete YZ_引驻客户信息 Where " + changed), 1) << text;
    }
}

/// A server refuses them, and so data that were made on a file fit an office.
TEST_F(StoredTexts, LongerThanTheirColumnAreRefused) {
    std::string longest;
    while (toUtf16(longest).size() < schema::textLength) longest += "𠮷";
    connection.execute(sql("Update YZ_区域设置 Set 说明='{}'", longest));
    EXPECT_EQ(failureOf([&] { connection.execute(sql("Update YZ_区域设置 Set 说明='{}x'", longest)); }),
              failure::textTooLong);
    EXPECT_EQ(
        failureOf([&] { connection.execute(sql("Insert Into YZ_区域设置 Values ('新','{}x')", longest)); }),
        failure::textTooLong);
    Recordset entry(connection, "Select * From YZ_区域设置", Rows::updatable);
    EXPECT_EQ(entry["说明"].text(), longest);
    EXPECT_EQ(failureOf([&] { entry["说明"] = longest + "x"; }), failure::textTooLong);
    EXPECT_EQ(row(sql("Select Count(*) From YZ_区域设置 Where 说明='{}x'", longest)), "0");
}

}  // namespace
}  // namespace desk
