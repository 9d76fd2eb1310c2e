#include "db/tsql/expression_parser.h"

#include <algorithm>
#include <array>
#include <utility>

#include "db/tsql/sql_failure.h"

namespace desk::tsql {

namespace {

// More than any statement of the system has, and far from the end of the stack for all that walks the tree.
constexpr int mostBraces = 100;
constexpr int deepestTree = 500;

Expression literal(Form form, std::string text) {
    return {.form = form, .text = std::move(text)};
}

}  // namespace

template <class... Parts>
Expression ExpressionParser::made(Form form, Parts&&... parts) {
    Expression expression{.form = form};
    (add(expression, std::forward<Parts>(parts)), ...);
    return expression;
}

void ExpressionParser::add(Expression& whole, Expression part) {
    deepen(whole, part.depth);
    whole.parts.push_back(std::move(part));
}

void ExpressionParser::deepen(Expression& whole, int below) {
    whole.depth = std::max(whole.depth, below + 1);
    deepest_ = std::max(deepest_, whole.depth);
    if (whole.depth > deepestTree) wrongStatement("语句嵌套过深。");
}

Expression ExpressionParser::expression() {
    if (++braces_ > mostBraces) wrongStatement("语句嵌套过深。");
    auto found = chain("OR", Form::either, &ExpressionParser::conjunction);
    --braces_;
    return found;
}

Expression ExpressionParser::conjunction() {
    return chain("AND", Form::both, &ExpressionParser::inversion);
}

/// A chain is one node, however long it is: sets of ticked states and offices grow.
Expression ExpressionParser::chain(std::string_view word, Form form, Expression (ExpressionParser::*link)()) {
    auto first = (this->*link)();
    if (!tokens_.isWord(word)) return first;
    auto whole = made(form, std::move(first));
    while (tokens_.takeWord(word)) add(whole, (this->*link)());
    return whole;
}

Expression ExpressionParser::inversion() {
    bool inverted = false;
    while (tokens_.takeWord("NOT")) inverted = !inverted;
    auto operand = comparison();
    return inverted ? made(Form::negation, std::move(operand)) : std::move(operand);
}

Expression ExpressionParser::comparison() {
    auto left = sum();
    if (tokens_.takeWord("IS")) {
        const bool negated = tokens_.takeWord("NOT");
        tokens_.expectWord("NULL");
        auto test = made(Form::isNull, std::move(left));
        test.negated = negated;
        return test;
    }
    const bool negated = tokens_.takeWord("NOT");
    if (tokens_.takeWord("IN")) return listOrQuery(std::move(left), negated);
    if (tokens_.takeWord("LIKE")) {
        auto test = made(Form::like, std::move(left), sum());
        test.negated = negated;
        return test;
    }
    if (tokens_.takeWord("BETWEEN")) {
        auto low = sum();
        tokens_.expectWord("AND");
        auto test = made(Form::between, std::move(left), std::move(low), sum());
        test.negated = negated;
        return test;
    }
    if (negated) tokens_.fail();
    for (const std::string_view sign : {"=", "<", ">", "<=", ">=", "<>", "!="}) {
        if (!tokens_.takeSymbol(sign)) continue;
        auto test = made(Form::compare, std::move(left), sum());
        test.text = sign;
        return test;
    }
    return left;
}

Expression ExpressionParser::listOrQuery(Expression left, bool negated) {
    tokens_.expectSymbol("(");
    Expression test = made(Form::inList, std::move(left));
    test.negated = negated;
    if (tokens_.isWord("SELECT")) {
        test.form = Form::inQuery;
        const int around = std::exchange(deepest_, 0);
        test.query = query_();
        deepen(test, deepest_);
        deepest_ = std::max(around, test.depth);
    } else {
        do add(test, sum());
        while (tokens_.takeSymbol(","));
    }
    tokens_.expectSymbol(")");
    return test;
}

Expression ExpressionParser::sum() {
    auto left = factor();
    while (true) {
        if (tokens_.takeSymbol("+"))
            left = made(Form::add, std::move(left), factor());
        else if (tokens_.takeSymbol("-"))
            left = made(Form::subtract, std::move(left), factor());
        else
            return left;
    }
}

Expression ExpressionParser::factor() {
    bool negative = false;
    while (tokens_.isSymbol("-") || tokens_.isSymbol("+"))
        negative = negative != (tokens_.take().text == "-");
    auto operand = primary();
    return negative ? made(Form::minus, std::move(operand)) : std::move(operand);
}

Expression ExpressionParser::primary() {
    if (tokens_.peek().kind == TokenKind::number) return literal(Form::number, tokens_.take().text);
    if (tokens_.peek().kind == TokenKind::text) return literal(Form::text, tokens_.take().text);
    if (tokens_.takeWord("NULL")) return {.form = Form::null};
    if (tokens_.takeSymbol("(")) {
        auto inner = expression();
        tokens_.expectSymbol(")");
        return inner;
    }
    if (tokens_.takeWord("CASE")) return choice();
    if (tokens_.takeWord("CONVERT")) return day();
    if (tokens_.isName() && tokens_.isSymbol("(", 1)) return function();

    auto column = literal(Form::column, tokens_.expectName());
    if (tokens_.takeSymbol(".")) {
        column.qualifier = std::move(column.text);
        column.text = tokens_.expectName();
    }
    return column;
}

Expression ExpressionParser::choice() {
    Expression choice{.form = Form::choice};
    tokens_.expectWord("WHEN");
    do {
        add(choice, expression());
        tokens_.expectWord("THEN");
        add(choice, expression());
    } while (tokens_.takeWord("WHEN"));
    if (tokens_.takeWord("ELSE")) add(choice, expression());
    tokens_.expectWord("END");
    return choice;
}

Expression ExpressionParser::function() {
    const auto name = tokens_.take().text;
    tokens_.expectSymbol("(");
    Expression call;
    if (schema::sameName(name, "LEN")) {
        call = made(Form::length, expression());
    } else if (schema::sameName(name, "NCHAR")) {
        // Only what no literal can carry to every engine.
        if (tokens_.take().text != "0") tokens_.fail();
        call = literal(Form::text, std::string(1, '\0'));
    } else {
        constexpr std::array<std::string_view, 5> aggregates = {"COUNT", "MAX", "MIN", "SUM", "AVG"};
        const auto* known = std::find_if(aggregates.begin(), aggregates.end(),
                                         [&](std::string_view a) { return schema::sameName(a, name); });
        if (known == aggregates.end()) wrongStatement(fmt::format("'{}' 不是可以识别的函数名。", name));
        call = literal(Form::aggregate, std::string(*known));
        const bool rows = call.text == "COUNT" && tokens_.takeSymbol("*");
        if (!rows) add(call, expression());
    }
    tokens_.expectSymbol(")");
    return call;
}

/// What follows "Convert": only the day as eight digits is known.
Expression ExpressionParser::day() {
    tokens_.expectSymbol("(");
    const auto type = tokens_.expectName();
    const bool texts = schema::sameName(type, "CHAR") || schema::sameName(type, "VARCHAR") ||
                       schema::sameName(type, "NCHAR") || schema::sameName(type, "NVARCHAR");
    tokens_.expectSymbol("(");
    const auto width = tokens_.take().text;
    tokens_.expectSymbol(")");
    tokens_.expectSymbol(",");
    auto day = made(Form::day112, expression());
    tokens_.expectSymbol(",");
    const auto style = tokens_.take().text;
    tokens_.expectSymbol(")");
    if (!texts || width != "8" || style != "112")
        wrongStatement(fmt::format("不支持转换 Convert({}({}),…,{})。", type, width, style));
    return day;
}

}  // namespace desk::tsql
