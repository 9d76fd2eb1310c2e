#include "db/tsql/expression_resolver.h"

#include <algorithm>

#include "db/tsql/sql_failure.h"
#include "db/tsql/typing.h"

namespace desk::tsql {

namespace {

/// The server would take a date's long English text there, which no statement means.
void requireNoDate(const Expression& value, std::string_view where) {
    if (value.type == Type::date || value.type == Type::moment)
        wrongStatement(fmt::format("日期不能用于 {}。", where));
}

}  // namespace

void ExpressionResolver::value(Expression& expression, const Scope& scope, Aggregates aggregates) const {
    any(expression, scope, aggregates);
    if (expression.type == Type::condition) wrongStatement("在应使用值的位置使用了条件。");
}

void ExpressionResolver::condition(Expression& expression, const Scope& scope, Aggregates aggregates) const {
    any(expression, scope, aggregates);
    if (expression.type != Type::condition) wrongStatement("在应使用条件的位置使用了非布尔类型的表达式。");
}

void ExpressionResolver::any(Expression& expression, const Scope& scope, Aggregates aggregates) const {
    auto& parts = expression.parts;
    const auto values = [&] {
        for (auto& part : parts) value(part, scope, aggregates);
    };
    const auto conditions = [&] {
        for (auto& part : parts) condition(part, scope, aggregates);
    };
    Type type = Type::condition;
    switch (expression.form) {
        case Form::column:
            return scope.resolve(expression);
        case Form::choice:
            return choice(expression, scope, aggregates);
        case Form::aggregate:
            return aggregate(expression, scope, aggregates);
        case Form::text:
            type = Type::text;
            break;
        case Form::number:
            type = expression.text.find_first_of(".eE") == std::string::npos ? Type::integer : Type::number;
            break;
        case Form::null:
        case Form::single:
            type = Type::null;
            break;
        case Form::both:
        case Form::either:
        case Form::negation:
            conditions();
            break;
        case Form::isNull:
            values();
            break;
        case Form::like:
            values();
            for (const auto& part : parts) requireNoDate(part, "LIKE");
            break;
        case Form::compare:
            values();
            makeComparable(parts[0], parts[1]);
            break;
        case Form::between:
        case Form::inList:
            values();
            list(expression);
            break;
        case Form::inQuery:
            values();
            innerQuery(expression, scope);
            break;
        case Form::length:
            values();
            requireNoDate(parts[0], "Len");
            type = Type::integer;
            break;
        case Form::day112: {
            values();
            const Type operand = parts[0].type;
            if (operand == Type::text || operand == Type::integer || operand == Type::number)
                wrongStatement("Convert(Char(8),…,112) 只适用于日期。");
            type = Type::text;
            break;
        }
        case Form::add:
        case Form::subtract:
        case Form::minus:
            values();
            return calculation(expression);
    }
    expression.type = type;
}

void ExpressionResolver::calculation(Expression& sum) const {
    auto& parts = sum.parts;
    const auto isText = [](const Expression& part) {
        return part.type == Type::text || part.type == Type::null;
    };
    if (sum.form == Form::add && std::all_of(parts.begin(), parts.end(), isText)) {
        sum.type = Type::text;
        return;
    }
    for (auto& part : parts) makeNumber(part);
    const bool integers = std::all_of(parts.begin(), parts.end(),
                                      [](const Expression& part) { return part.type == Type::integer; });
    sum.type = integers ? Type::integer : Type::number;
}

/// Twice: a later part can turn the first into a number, and then the earlier ones must follow.
void ExpressionResolver::list(Expression& test) const {
    auto& parts = test.parts;
    for (int round = 0; round < 2; ++round)
        for (std::size_t i = 1; i < parts.size(); ++i) makeComparable(parts[0], parts[i]);
}

void ExpressionResolver::innerQuery(Expression& test, const Scope& scope) const {
    query_(*test.query, &scope);
    const auto& outputs = test.query->outputs;
    if (outputs.size() != 1) wrongStatement("子查询在 IN 之后只能返回一列。");
    // What the inner query gives cannot be converted from here; only the value before IN can.
    auto given = *outputs.front().value;
    const auto conversion = given.conversion;
    given.form = given.form == Form::text ? Form::column : given.form;
    makeComparable(test.parts.front(), given);
    if (given.conversion != conversion) wrongStatement("IN 之前的值与子查询的列类型不同。");
}

void ExpressionResolver::choice(Expression& choice, const Scope& scope, Aggregates aggregates) const {
    auto& parts = choice.parts;
    std::vector<Expression*> results;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool isCondition = i % 2 == 0 && i + 1 < parts.size();
        if (isCondition)
            condition(parts[i], scope, aggregates);
        else
            value(parts[i], scope, aggregates);
        if (!isCondition) results.push_back(&parts[i]);
    }
    // Text gives way to numbers and to dates, as on the server.
    auto* strongest = *std::max_element(results.begin(), results.end(),
                                        [](const auto* a, const auto* b) { return a->type < b->type; });
    for (auto* result : results)
        if (result != strongest) makeComparable(*result, *strongest);
    choice.type = strongest->type;
}

void ExpressionResolver::aggregate(Expression& call, const Scope& scope, Aggregates aggregates) const {
    if (aggregates == Aggregates::refused)
        wrongStatement(fmt::format("聚合函数 {} 不能出现在此处。", call.text));
    for (auto& part : call.parts) value(part, scope, Aggregates::refused);
    if (call.text == "COUNT") {
        call.type = Type::integer;
        return;
    }
    auto& part = call.parts.front();
    if (call.text == "SUM" || call.text == "AVG") {
        if (part.type != Type::integer && part.type != Type::number)
            wrongStatement(fmt::format("操作数数据类型对于 {} 运算符无效。", call.text));
    }
    call.type = part.type;
}

bool sameExpression(const Expression& a, const Expression& b) {
    if (a.form != b.form || a.negated != b.negated || a.query || b.query) return false;
    if (a.conversion != b.conversion || a.parts.size() != b.parts.size()) return false;
    const bool names = a.form == Form::column;
    if (names ? !schema::sameName(a.text, b.text) || !schema::sameName(a.qualifier, b.qualifier)
              : a.text != b.text)
        return false;
    return std::equal(a.parts.begin(), a.parts.end(), b.parts.begin(), sameExpression);
}

bool hasAggregate(const Expression& expression) {
    return expression.form == Form::aggregate ||
           std::any_of(expression.parts.begin(), expression.parts.end(), hasAggregate);
}

}  // namespace desk::tsql
