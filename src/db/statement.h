#pragma once

#include <concepts>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace desk {

/// A piece of a statement that stands outside quotes, as it is. No plain text becomes one by accident: only
/// the functions at the end of this page make it.
class Fragment {
  public:
    const std::string& text() const { return text_; }

  private:
    friend struct FragmentMaker;
    explicit Fragment(std::string text) : text_(std::move(text)) {}
    std::string text_;
};

/// The name of a table or a column, from a literal of the program.
class Name {
  public:
    consteval Name(const char* literal) : text_(literal) {}
    constexpr operator std::string_view() const { return text_; }
    constexpr std::string_view text() const { return text_; }

  private:
    std::string_view text_;
};

namespace statement {

/// What a value may be where a brace stands.
enum class Kind { text, number, piece };

template <class Value>
constexpr Kind kindOf() {
    if constexpr (std::is_same_v<Value, Fragment> || std::is_same_v<Value, Name>)
        return Kind::piece;
    else if constexpr (std::is_arithmetic_v<Value>)
        return Kind::number;
    else
        return Kind::text;
}

/// Never defined: a statement that calls one of these does not compile.
void aBraceIsNotClosed();
void aTextStandsOutsideQuotes();
void aPieceOfAStatementStandsInsideQuotes();
void aBraceStandsBehindAMinus();
void thereAreMoreBracesThanValues();
void thereAreMoreValuesThanBraces();
void aQuoteIsNotClosed();
void namesInBracketsAndCommentsDoNotGoWithBraces();

/// The text of a statement whose braces have been held against the kinds of `Values` while it was compiled.
template <class... Values>
struct Checked {
    consteval Checked(const char* literal) : text(literal) {
        constexpr Kind kinds[] = {kindOf<Values>()..., Kind::text};
        std::size_t used = 0;
        bool quoted = false;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char c = text[i];
            const char next = i + 1 < text.size() ? text[i + 1] : '\0';
            if (c == '\'') quoted = !quoted;
            if (sizeof...(Values) > 0 && !quoted &&
                (c == '[' || c == '"' || (c == '-' && next == '-') || (c == '/' && next == '*')))
                namesInBracketsAndCommentsDoNotGoWithBraces();
            if (c == '}') aBraceIsNotClosed();
            if (c != '{') continue;
            if (next != '}') aBraceIsNotClosed();
            if (used == sizeof...(Values)) thereAreMoreBracesThanValues();
            if (!quoted && kinds[used] == Kind::text) aTextStandsOutsideQuotes();
            if (quoted && kinds[used] == Kind::piece) aPieceOfAStatementStandsInsideQuotes();
            if (!quoted && i > 0 && text[i - 1] == '-') aBraceStandsBehindAMinus();
            ++used;
            ++i;
        }
        if (used < sizeof...(Values)) thereAreMoreValuesThanBraces();
        if (quoted) aQuoteIsNotClosed();
    }

    std::string_view text;
};

/// A value on its way into a statement. It sees its text, and is gone before that.
class Written {
  public:
    Written(std::string_view text) : seen_(text) {}
    Written(const std::string& text) : seen_(text) {}
    Written(const char* text) : seen_(text) {}
    Written(const Fragment& fragment) : seen_(fragment.text()) {}
    Written(Name name) : seen_(name) {}
    /// Fails with -2147217900 when it is no finite number.
    template <std::floating_point Number>
    Written(Number number) : made_(written(static_cast<double>(number))) {}
    template <std::integral Number>
    requires(!std::same_as<Number, bool> && !std::same_as<Number, char>) Written(Number number)
        : made_(std::to_string(number)) {}

    std::string_view text() const { return made_.empty() ? seen_ : made_; }

  private:
    static std::string written(double number);
    std::string_view seen_;
    std::string made_;
};

std::string composed(std::string_view text, std::initializer_list<Written> values);
Fragment composedFragment(std::string_view text, std::initializer_list<Written> values);

}  // namespace statement

/// A statement with `values` in its braces. This is the only way by which a value gets into a statement. In
/// quotes stands a text or a number; a quote in the text is doubled, so that "O'Brien" is a name and no piece
/// of the statement. Outside quotes stands a number, a fragment or a name. What stands elsewhere does not
/// compile.
template <class... Values>
std::string sql(std::type_identity_t<statement::Checked<Values...>> text, const Values&... values) {
    return statement::composed(text.text, {statement::Written(values)...});
}

/// A piece of a statement, composed as sql() does: a condition, a query inside another.
template <class... Values>
Fragment fragment(std::type_identity_t<statement::Checked<Values...>> text, const Values&... values) {
    return statement::composedFragment(text.text, {statement::Written(values)...});
}

/// `parts` with `between` between them.
Fragment joined(const std::vector<Fragment>& parts, const Fragment& between);

/// The number that `text` is, as it stands there. Fails with -2147217900 when it is none, and nothing is
/// sent.
Fragment numeral(std::string_view text);

/// `1,2` for an In list, each as numeral() tells; nothing at all for no texts.
Fragment numerals(const std::vector<std::string>& texts);

/// `'text'`, a quote in it doubled; NULL where there is no text.
Fragment literalOrNull(std::string_view text);

/// `'a','b'` for an In list; nothing at all for no texts.
Fragment literals(const std::vector<std::string>& texts);

}  // namespace desk
