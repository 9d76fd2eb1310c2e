#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "db/tsql/lexer.h"

namespace desk::tsql {

/// The tokens of a statement, taken one after the other. Keywords are given in capitals.
class TokenStream {
  public:
    explicit TokenStream(std::string_view statement);

    const Token& peek(std::size_t ahead = 0) const;
    bool atEnd() const { return peek().kind == TokenKind::end; }

    bool isWord(std::string_view keyword, std::size_t ahead = 0) const;
    bool isSymbol(std::string_view symbol, std::size_t ahead = 0) const;

    /// Takes the next token.
    Token take();
    /// Takes all the words if they come next in that order.
    bool takeWords(std::initializer_list<std::string_view> keywords);
    bool takeWord(std::string_view keyword) { return takeWords({keyword}); }
    bool takeSymbol(std::string_view symbol);

    /// As above; anything else is a syntax error.
    void expectWord(std::string_view keyword);
    void expectSymbol(std::string_view symbol);

    /// Whether a name comes next: in brackets, or a bare word that is no keyword.
    bool isName(std::size_t ahead = 0) const;
    std::string expectName();

    /// Fails with the text of a syntax error near the next token, or near the last one at the end.
    [[noreturn]] void fail() const;

  private:
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
};

}  // namespace desk::tsql
