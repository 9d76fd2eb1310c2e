#include "db/tsql/typing.h"

#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "db/storage.h"
#include "db/tsql/sql_failure.h"

namespace desk::tsql {

namespace {

bool isNumeric(Type type) {
    return type == Type::integer || type == Type::number;
}
bool isDate(Type type) {
    return type == Type::date || type == Type::moment;
}

/// The number that a text literal is. As on the server, a blank one is zero.
double literalNumber(std::string_view text) {
    if (trimmed(text).empty()) return 0;
    const auto number = wholeNumber(text);
    if (!number) noNumber(text);
    return *number;
}

void becomeNumber(Expression& literal, double number) {
    literal.form = Form::number;
    literal.text = fmt::format("{}", number);
    literal.type = number == std::floor(number) ? Type::integer : Type::number;
}

void becomeText(Expression& literal, std::string text, Type type) {
    literal.form = Form::text;
    literal.text = std::move(text);
    literal.type = type;
}

bool isFlag(const Expression& value) {
    return value.column != nullptr && value.column->kind == schema::Kind::flag;
}

/// Turns a text literal into what `other` holds.
void adaptLiteral(Expression& literal, const Expression& other) {
    if (isNumeric(other.type)) {
        if (isFlag(other))
            becomeNumber(literal, stored(schema::Kind::flag, Value(literal.text)).number());
        else
            becomeNumber(literal, literalNumber(literal.text));
    } else if (isDate(other.type)) {
        const auto moment = parseDate(literal.text);
        if (!moment) noDate(literal.text);
        const bool dayOnly = other.type == Type::date && moment->time.count() == 0;
        becomeText(literal, dayOnly ? isoDay(*moment) : isoStamp(*moment), other.type);
    }
}

[[noreturn]] void incompatible() {
    wrongStatement("操作数类型冲突：日期不能与文本列或数值混用。");
}

void convert(Expression& value, Conversion conversion, Type type) {
    if (value.conversion != Conversion::none) incompatible();
    value.conversion = conversion;
    value.type = type;
}

}  // namespace

Type typeOf(schema::Kind kind) {
    using schema::Kind;
    switch (kind) {
        case Kind::text:
        case Kind::longText:
            return Type::text;
        case Kind::integer:
        case Kind::flag:
        case Kind::identity:
            return Type::integer;
        case Kind::number:
        case Kind::money:
            return Type::number;
        case Kind::date:
            return Type::date;
        case Kind::moment:
            return Type::moment;
    }
    return Type::null;
}

void makeComparable(Expression& left, Expression& right) {
    if (left.type == Type::null || right.type == Type::null) return;
    if (left.form == Form::text && left.type == Type::text) adaptLiteral(left, right);
    if (right.form == Form::text && right.type == Type::text) adaptLiteral(right, left);
    if (isDate(left.type) != isDate(right.type)) incompatible();
    if (isDate(left.type)) {
        if (left.type == right.type) return;
        auto& day = left.type == Type::date ? left : right;
        if (day.form == Form::text)
            becomeText(day, isoStamp(heldMoment(day.text)), Type::moment);
        else
            convert(day, Conversion::toMoment, Type::moment);
        return;
    }
    if (isNumeric(left.type) == isNumeric(right.type)) return;
    makeNumber(left);
    makeNumber(right);
}

void makeNumber(Expression& value) {
    if (value.type == Type::null || isNumeric(value.type)) return;
    if (value.type != Type::text) incompatible();
    if (value.form == Form::text)
        becomeNumber(value, literalNumber(value.text));
    else
        convert(value, Conversion::toNumber, Type::number);
}

namespace {

/// A literal as the column keeps it.
void storeLiteral(Expression& literal, schema::Kind kind) {
    using schema::Kind;
    const Type type = typeOf(kind);
    if (isDate(type)) {
        if (literal.form == Form::number) incompatible();
        becomeText(literal, stored(kind, Value(literal.text)).text(), type);
    } else if (type == Type::text) {
        becomeText(literal, stored(kind, Value(literal.text)).text(), Type::text);
    } else if (kind == Kind::flag) {
        const bool blank = trimmed(literal.text).empty();
        becomeNumber(literal, blank ? 0 : stored(kind, Value(literal.text)).number());
    } else {
        double number = literalNumber(literal.text);
        if (type == Type::integer && number != std::floor(number)) {
            if (literal.form == Form::text) noNumber(literal.text);
            number = std::trunc(number);
        }
        becomeNumber(literal, stored(kind, Value(number)).number());
    }
}

void storeExpression(Expression& value, schema::Kind kind) {
    using schema::Kind;
    const Type type = typeOf(kind);
    if (isDate(type)) {
        if (!isDate(value.type)) incompatible();
        if (value.type == type) return;
        convert(value, type == Type::moment ? Conversion::toMoment : Conversion::toDate, type);
    } else if (type == Type::text) {
        if (isDate(value.type)) incompatible();
        if (value.type != Type::text) convert(value, Conversion::toText, type);
    } else {
        if (isDate(value.type)) incompatible();
        if (kind == Kind::flag)
            convert(value, Conversion::toFlag, type);
        else if (kind == Kind::money)
            convert(value, Conversion::toMoney, type);
        else if (value.type == Type::text)
            convert(value, Conversion::toNumber, type);
        else if (type == Type::integer && value.type == Type::number)
            convert(value, Conversion::toInteger, type);
    }
}

}  // namespace

void makeStorable(Expression& value, const schema::Column& column) {
    if (value.type == Type::null) return;
    const bool negative = value.form == Form::minus && value.parts.front().form == Form::number;
    if (negative) {
        auto number = std::move(value.parts.front());
        number.text.insert(0, "-");
        value = std::move(number);
    }
    const bool literal = value.form == Form::text || value.form == Form::number;
    if (literal)
        storeLiteral(value, column.kind);
    else
        storeExpression(value, column.kind);
}

}  // namespace desk::tsql
