#include "db/statement.h"

#include <cmath>

#include "base/failure.h"
#include "base/number.h"
#include "base/text.h"

namespace desk {

struct FragmentMaker {
    static Fragment of(std::string text) { return Fragment(std::move(text)); }
};

namespace {

[[noreturn]] void noNumber(std::string_view text) {
    throw RuntimeFailure(failure::wrongStatement, "'" + std::string(text) + "' 附近有语法错误。");
}

void appendQuoted(std::string& statement, std::string_view value) {
    for (auto quote = value.find('\''); quote != std::string_view::npos; quote = value.find('\'')) {
        statement.append(value, 0, quote + 1) += '\'';
        value.remove_prefix(quote + 1);
    }
    statement += value;
}

std::string literal(std::string_view text) {
    std::string quoted = "'";
    appendQuoted(quoted, text);
    return quoted += '\'';
}

/// Takes the digits at the head of `rest` away and tells whether there were any.
bool takeDigits(std::string_view& rest) {
    const auto end = std::min(rest.find_first_not_of("0123456789"), rest.size());
    rest.remove_prefix(end);
    return end > 0;
}

bool takeOneOf(std::string_view& rest, std::string_view characters) {
    if (rest.empty() || characters.find(rest.front()) == std::string_view::npos) return false;
    rest.remove_prefix(1);
    return true;
}

bool isNumeral(std::string_view text) {
    takeOneOf(text, "+-");
    const bool whole = takeDigits(text);
    const bool decimals = takeOneOf(text, ".") && takeDigits(text);
    if (!whole && !decimals) return false;
    if (!takeOneOf(text, "eE")) return text.empty();
    takeOneOf(text, "+-");
    return takeDigits(text) && text.empty();
}

}  // namespace

namespace statement {

std::string Written::written(double number) {
    if (!std::isfinite(number)) noNumber(std::to_string(number));
    return numberText(number);
}

std::string composed(std::string_view text, std::initializer_list<Written> values) {
    std::size_t length = text.size();
    for (const Written& value : values) length += value.text().size();
    std::string statement;
    statement.reserve(length);
    bool quoted = false;
    auto value = values.begin();
    while (true) {
        const auto mark = std::min(text.find_first_of("'{"), text.size());
        statement += text.substr(0, mark);
        if (mark == text.size()) return statement;
        if (text[mark] == '\'') {
            quoted = !quoted;
            statement += '\'';
            text.remove_prefix(mark + 1);
            continue;
        }
        if (quoted)
            appendQuoted(statement, value->text());
        else
            statement += value->text();
        ++value;
        text.remove_prefix(mark + 2);
    }
}

Fragment composedFragment(std::string_view text, std::initializer_list<Written> values) {
    return FragmentMaker::of(composed(text, values));
}

}  // namespace statement

Fragment joined(const std::vector<Fragment>& parts, const Fragment& between) {
    std::string all;
    for (const Fragment& part : parts) {
        if (&part != &parts.front()) all += between.text();
        all += part.text();
    }
    return FragmentMaker::of(std::move(all));
}

Fragment numeral(std::string_view text) {
    if (!isNumeral(trimmed(text))) noNumber(text);
    return FragmentMaker::of(std::string(text));
}

Fragment numerals(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) numeral(text);
    return FragmentMaker::of(join(texts, ","));
}

Fragment literalOrNull(std::string_view text) {
    return FragmentMaker::of(text.empty() ? "NULL" : literal(text));
}

Fragment literals(const std::vector<std::string>& texts) {
    std::vector<std::string> quoted;
    quoted.reserve(texts.size());
    for (const std::string& text : texts) quoted.push_back(literal(text));
    return FragmentMaker::of(join(quoted, ","));
}

}  // namespace desk
