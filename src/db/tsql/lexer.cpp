#include "db/tsql/lexer.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <cstdint>

#include "db/tsql/sql_failure.h"

namespace desk::tsql {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool startsName(UChar32 c) {
    return c == '_' || c == '#' || c == '@' ||
           (c < 0x80 ? (c | 0x20) >= 'a' && (c | 0x20) <= 'z' : u_isalpha(c) != 0);
}

bool continuesName(UChar32 c) {
    return startsName(c) || c == '$' || (c < 0x80 ? c >= '0' && c <= '9' : u_isdigit(c) != 0);
}

class Lexer {
  public:
    explicit Lexer(std::string_view statement) : whole_(statement), rest_(statement) {}

    std::vector<Token> all() {
        std::vector<Token> found;
        found.reserve(rest_.size() / 6 + 8);
        do found.push_back(next());
        while (found.back().kind != TokenKind::end);
        return found;
    }

  private:
    Token next() {
        skipBlanksAndComments();
        const auto at = whole_.size() - rest_.size();
        auto token = nextBehindBlanks();
        token.at = at;
        token.end = whole_.size() - rest_.size();
        return token;
    }

    Token nextBehindBlanks() {
        if (rest_.empty()) return {};
        const char c = rest_.front();
        if (c == '\'') return closed(TokenKind::text, '\'');
        if (c == '[') return closed(TokenKind::quotedName, ']');
        if (c == '"') return closed(TokenKind::quotedName, '"');
        if ((c == 'N' || c == 'n') && rest_.size() > 1 && rest_[1] == '\'') {
            rest_.remove_prefix(1);
            return closed(TokenKind::text, '\'');
        }
        if (isDigit(c) || (c == '.' && rest_.size() > 1 && isDigit(rest_[1]))) return number();
        if (const auto length = nameLength(); length > 0) return taken(TokenKind::word, length);
        return symbol();
    }

    void skipBlanksAndComments() {
        while (true) {
            const auto start = rest_.find_first_not_of(" \t\r\n");
            rest_.remove_prefix(start == std::string_view::npos ? rest_.size() : start);
            if (rest_.starts_with("--")) {
                rest_.remove_prefix(std::min(rest_.find('\n'), rest_.size()));
            } else if (rest_.starts_with("/*")) {
                const auto end = rest_.find("*/", 2);
                if (end == std::string_view::npos) wrongStatement("缺少注释结束标记 '*/'。");
                rest_.remove_prefix(end + 2);
            } else {
                return;
            }
        }
    }

    /// What stands between the opening character and `quote`, which is doubled where it is meant itself.
    Token closed(TokenKind kind, char quote) {
        Token token{kind, {}};
        for (std::size_t i = 1; i < rest_.size(); ++i) {
            // The engine behind would read a name up to here only.
            if (rest_[i] == '\0' && kind == TokenKind::quotedName) break;
            if (rest_[i] != quote) {
                token.text += rest_[i];
            } else if (i + 1 < rest_.size() && rest_[i + 1] == quote) {
                token.text += rest_[i++];
            } else {
                rest_.remove_prefix(i + 1);
                if (kind == TokenKind::quotedName && token.text.empty()) syntaxErrorNear("");
                return token;
            }
        }
        wrongStatement(fmt::format("字符串 '{}' 后的引号不完整。", token.text));
    }

    Token number() {
        std::size_t length = 0;
        const auto digits = [&] {
            while (length < rest_.size() && isDigit(rest_[length])) ++length;
        };
        digits();
        if (length < rest_.size() && rest_[length] == '.') {
            ++length;
            digits();
        }
        if (length < rest_.size() && (rest_[length] | 0x20) == 'e') {
            const auto mantissa = length++;
            if (length < rest_.size() && (rest_[length] == '+' || rest_[length] == '-')) ++length;
            const auto exponent = length;
            digits();
            if (length == exponent) length = mantissa;
        }
        return taken(TokenKind::number, length);
    }

    std::size_t nameLength() const {
        std::size_t length = 0;
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(rest_.data());
        while (length < rest_.size()) {
            std::size_t after = length;
            UChar32 c = 0;
            U8_NEXT(bytes, after, rest_.size(), c);
            if (c < 0 || !(length == 0 ? startsName(c) : continuesName(c))) break;
            length = after;
        }
        return length;
    }

    Token symbol() {
        for (const std::string_view two : {"<=", ">=", "<>", "!="})
            if (rest_.starts_with(two)) return taken(TokenKind::symbol, two.size());
        constexpr std::string_view single = "(),.;*+-=<>";
        if (single.find(rest_.front()) != std::string_view::npos) return taken(TokenKind::symbol, 1);
        std::size_t length = 0;
        U8_FWD_1(reinterpret_cast<const std::uint8_t*>(rest_.data()), length, rest_.size());
        syntaxErrorNear(rest_.substr(0, length));
    }

    Token taken(TokenKind kind, std::size_t length) {
        Token token{kind, std::string(rest_.substr(0, length))};
        rest_.remove_prefix(length);
        return token;
    }

    std::string_view whole_;
    std::string_view rest_;
};

}  // namespace

std::vector<Token> tokens(std::string_view statement) {
    return Lexer(statement).all();
}

}  // namespace desk::tsql
