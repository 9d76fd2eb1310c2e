#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace desk::tsql {

enum class TokenKind {
    word,        ///< a keyword or a bare name
    quotedName,  ///< a name in brackets or double quotes; `text` is the name itself
    text,        ///< a literal in single quotes; `text` is its content
    number,
    symbol,  ///< one of ( ) , . ; * + - = < > <= >= <> !=
    end,
};

struct Token {
    TokenKind kind = TokenKind::end;
    std::string text{};
    std::size_t at = 0;   ///< where it begins in the statement
    std::size_t end = 0;  ///< where it has ended
};

/// The tokens of a statement, an end token last. Fails with -2147217900 at a character that no statement has,
/// and at a quote that is never closed.
std::vector<Token> tokens(std::string_view statement);

}  // namespace desk::tsql
