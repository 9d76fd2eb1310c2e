#include "db/embedded/functions.h"

#include <sqlite3.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <cstdint>
#include <string>

#include "base/number.h"
#include "base/text.h"
#include "db/embedded/renderer.h"
#include "db/tsql/sql_failure.h"

namespace desk::embedded {

namespace {

/// A character without its case, full-width forms as their plain ones.
UChar32 folded(UChar32 c) {
    if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
    constexpr UChar32 firstWide = 0xFF01;
    constexpr UChar32 lastWide = 0xFF5E;
    if (c >= firstWide && c <= lastWide) return folded(c - firstWide + '!');
    return u_foldCase(c, U_FOLD_CASE_DEFAULT);
}

UChar32 take(std::string_view& text) {
    UChar32 c = 0;
    std::size_t length = 0;
    U8_NEXT_OR_FFFD(reinterpret_cast<const std::uint8_t*>(text.data()), length, text.size(), c);
    text.remove_prefix(length);
    return folded(c);
}

/// Takes the set behind "[" off the pattern and tells whether `c` is in it. A set that is never closed holds
/// nothing.
bool takeSet(std::string_view& pattern, UChar32 c) {
    const bool outside = !pattern.empty() && pattern.front() == '^';
    if (outside) pattern.remove_prefix(1);
    bool found = false;
    for (bool first = true; !pattern.empty(); first = false) {
        if (pattern.front() == ']' && !first) {
            pattern.remove_prefix(1);
            return found != outside;
        }
        const UChar32 low = take(pattern);
        UChar32 high = low;
        if (pattern.size() > 1 && pattern[0] == '-' && pattern[1] != ']') {
            pattern.remove_prefix(1);
            high = take(pattern);
        }
        found = found || (c >= low && c <= high);
    }
    return false;
}

/// Takes one element other than % off the pattern and one character off the text; whether they fit. Only the
/// plain forms of _ and [ are wildcards: the full-width ones are characters like any other.
bool takeOne(std::string_view& text, std::string_view& pattern) {
    const char first = pattern.front();
    const UChar32 wanted = take(pattern);
    const UChar32 c = take(text);
    if (first == '_') return true;
    if (first == '[') return takeSet(pattern, c);
    return wanted == c;
}

/// All of a text, also behind a NUL.
std::string_view textOf(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void likeCall(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL)
        return sqlite3_result_null(context);
    sqlite3_result_int(context, isLike(textOf(values[0]), textOf(values[1])) ? 1 : 0);
}

void numberCall(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) != SQLITE_TEXT) return sqlite3_result_value(context, values[0]);
    const std::string_view text = textOf(values[0]);
    if (trimmed(text).empty()) return sqlite3_result_double(context, 0);
    if (const auto number = wholeNumber(text)) return sqlite3_result_double(context, *number);
    sqlite3_result_error(context, tsql::noConversion(text, "数值").c_str(), -1);
    sqlite3_result_error_code(context, SQLITE_MISMATCH);
}

}  // namespace

bool isLike(std::string_view text, std::string_view pattern) {
    // Where to try again: one character further behind the last %.
    std::string_view retryText;
    std::string_view retryPattern;
    bool canRetry = false;
    while (true) {
        if (!pattern.empty() && pattern.front() == '%') {
            pattern.remove_prefix(1);
            if (pattern.empty()) return true;
            canRetry = true;
            retryPattern = pattern;
            retryText = text;
        } else if (text.empty() && pattern.empty()) {
            return true;
        } else if (text.empty() || pattern.empty() || !takeOne(text, pattern)) {
            if (!canRetry || retryText.empty()) return false;
            take(retryText);
            text = retryText;
            pattern = retryPattern;
        }
    }
}

void addFunctions(sqlite3* database) {
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function(database, likeFunction, 2, flags, nullptr, likeCall, nullptr, nullptr);
    sqlite3_create_function(database, numberFunction, 1, flags, nullptr, numberCall, nullptr, nullptr);
}

}  // namespace desk::embedded
