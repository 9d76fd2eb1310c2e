#include "db/tsql/token_stream.h"

#include <algorithm>
#include <array>

#include "db/tsql/sql_failure.h"
#include "schema/catalogue.h"

namespace desk::tsql {

namespace {

/// Words that cannot be bare names.
constexpr std::array<std::string_view, 49> keywords = {
    "ALL",    "AND",    "AS",       "ASC",    "BETWEEN", "BY",    "CASE",  "CONVERT", "CREATE", "CROSS",
    "DELETE", "DESC",   "DISTINCT", "DROP",   "ELSE",    "END",   "EXEC",  "EXISTS",  "FROM",   "FULL",
    "GROUP",  "HAVING", "IN",       "INNER",  "INSERT",  "INTO",  "IS",    "JOIN",    "LEFT",   "LIKE",
    "NOT",    "NULL",   "ON",       "OR",     "ORDER",   "OUTER", "RIGHT", "SELECT",  "SET",    "TABLE",
    "THEN",   "TOP",    "UNION",    "UPDATE", "VALUES",  "WHEN",  "WHERE", "WITH",    "EXECUTE"};

bool isKeyword(std::string_view word) {
    return std::any_of(keywords.begin(), keywords.end(),
                       [&](std::string_view keyword) { return schema::sameName(keyword, word); });
}

}  // namespace

TokenStream::TokenStream(std::string_view statement) : tokens_(tokens(statement)) {}

const Token& TokenStream::peek(std::size_t ahead) const {
    return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

bool TokenStream::isWord(std::string_view keyword, std::size_t ahead) const {
    const auto& token = peek(ahead);
    return token.kind == TokenKind::word && schema::sameName(token.text, keyword);
}

bool TokenStream::isSymbol(std::string_view symbol, std::size_t ahead) const {
    const auto& token = peek(ahead);
    return token.kind == TokenKind::symbol && token.text == symbol;
}

Token TokenStream::take() {
    const auto& token = peek();
    if (token.kind == TokenKind::end) fail();
    ++at_;
    return token;
}

bool TokenStream::takeWords(std::initializer_list<std::string_view> words) {
    std::size_t ahead = 0;
    for (const auto word : words)
        if (!isWord(word, ahead++)) return false;
    at_ += words.size();
    return true;
}

bool TokenStream::takeSymbol(std::string_view symbol) {
    if (!isSymbol(symbol)) return false;
    ++at_;
    return true;
}

void TokenStream::expectWord(std::string_view keyword) {
    if (!takeWord(keyword)) fail();
}

void TokenStream::expectSymbol(std::string_view symbol) {
    if (!takeSymbol(symbol)) fail();
}

bool TokenStream::isName(std::size_t ahead) const {
    const auto& token = peek(ahead);
    return token.kind == TokenKind::quotedName || (token.kind == TokenKind::word && !isKeyword(token.text));
}

std::string TokenStream::expectName() {
    if (!isName()) fail();
    return take().text;
}

void TokenStream::fail() const {
    if (!atEnd()) syntaxErrorNear(peek().text);
    syntaxErrorNear(at_ == 0 ? std::string_view() : std::string_view(tokens_[at_ - 1].text));
}

}  // namespace desk::tsql
