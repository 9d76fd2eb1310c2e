#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/failure.h"
#include "db/statement.h"
#include "db/tsql/lexer.h"

namespace {

using desk::tsql::Token;
using desk::tsql::TokenKind;

void require(bool held) {
    if (!held) std::abort();
}

void requireLiteral(const Token& token, const std::string& text) {
    require(token.kind == TokenKind::text && token.text == text);
}

}  // namespace

/// Puts any bytes into a statement wherever a value may stand. The lexer is the judge: one literal goes in,
/// one literal with the same text comes out, and what is taken for a number is nothing else.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace desk;
    const std::string text(reinterpret_cast<const char*>(data), size);

    const auto quoted =
        tsql::tokens(sql("a='{}',N'%{}%',{},{};", text, text, literals({text, "x"}), literalOrNull(text)));
    require(quoted.size() == 13);
    requireLiteral(quoted[2], text);
    requireLiteral(quoted[4], "%" + text + "%");
    requireLiteral(quoted[6], text);
    requireLiteral(quoted[8], "x");
    if (!text.empty()) requireLiteral(quoted[10], text);

    try {
        const auto number = tsql::tokens(sql("({})", numeral(text)));
        const bool isSigned = number[1].kind == TokenKind::symbol;
        require(number.size() == (isSigned ? 5 : 4));
        require(number[isSigned ? 2 : 1].kind == TokenKind::number);
    } catch (const RuntimeFailure& failure) {
        require(failure.number() == failure::wrongStatement);
    }
    return 0;
}
