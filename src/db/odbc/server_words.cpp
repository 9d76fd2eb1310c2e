#include "db/odbc/server_words.h"

#include <fmt/format.h>

#include <algorithm>

#include "db/tsql/lexer.h"
#include "db/tsql/sql_failure.h"
#include "schema/catalogue.h"

namespace desk::odbc {

namespace {

using tsql::Token;
using tsql::TokenKind;

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

std::string quoted(std::string_view text) {
    std::string literal = isAscii(text) ? "'" : "N'";
    for (const char c : text) {
        if (c == '\'') literal += c;
        literal += c;
    }
    return literal + "'";
}

/// The driver takes a statement up to a NUL only.
std::string textLiteral(std::string_view text) {
    auto nul = text.find('\0');
    if (nul == std::string_view::npos) return quoted(text);
    std::string sum = "(";
    for (; nul != std::string_view::npos; nul = text.find('\0')) {
        sum += quoted(text.substr(0, nul)) + "+NChar(0)+";
        text.remove_prefix(nul + 1);
    }
    return sum + quoted(text) + ")";
}

/// Whether a literal can be sent as it stands in the statement.
bool standsWell(const Token& literal, std::string_view statement) {
    const bool wide = statement[literal.at] != '\'';
    return (wide || isAscii(literal.text)) && literal.text.find('\0') == std::string::npos;
}

bool isSemicolon(const Token& token) {
    return token.kind == TokenKind::symbol && token.text == ";";
}

void requireOne(const std::vector<Token>& tokens) {
    if (tokens.front().kind == TokenKind::end || isSemicolon(tokens.front()))
        tsql::syntaxErrorNear(tokens.front().text);
    for (std::size_t i = 0; i + 2 < tokens.size(); ++i)
        if (isSemicolon(tokens[i])) tsql::syntaxErrorNear(tokens[i + 1].text);
}

bool isWrite(const Token& first) {
    return schema::sameName(first.text, "Update") || schema::sameName(first.text, "Insert") ||
           schema::sameName(first.text, "Delete");
}

}  // namespace

ServerStatement serverStatement(std::string_view statement) {
    const auto tokens = tsql::tokens(statement);
    requireOne(tokens);
    ServerStatement sent{{}, isWrite(tokens.front())};
    std::size_t copied = 0;
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        if (tokens[i].kind != TokenKind::text || standsWell(tokens[i], statement)) continue;
        // The blank keeps "Like'…'" two words.
        sent.text.append(statement.substr(copied, tokens[i].at - copied)).append(" ");
        sent.text += textLiteral(tokens[i].text);
        copied = tokens[i].end;
    }
    sent.text += statement.substr(copied);
    return sent;
}

std::string literal(const Value& held) {
    if (held.isNull()) return "NULL";
    if (const auto* number = std::get_if<double>(&held.held())) return fmt::format("{}", *number);
    if (const auto* text = std::get_if<std::string>(&held.held())) return textLiteral(*text);
    return held.text();
}

std::string bracketed(std::string_view name) {
    return fmt::format("[{}]", name);
}

}  // namespace desk::odbc
