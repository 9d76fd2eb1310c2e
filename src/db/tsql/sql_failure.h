#pragma once

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "base/failure.h"

namespace desk::tsql {

[[noreturn]] inline void wrongStatement(const std::string& description) {
    throw RuntimeFailure(failure::wrongStatement, description);
}

[[noreturn]] inline void syntaxErrorNear(std::string_view token) {
    wrongStatement(fmt::format("'{}' 附近有语法错误。", token));
}

/// What cannot be converted to a number or a date, as it is told. Whoever reads a failure stops at a NUL, so
/// that one in a pasted text is shown by a sign.
inline std::string noConversion(std::string_view text, std::string_view wanted) {
    std::string shown(text);
    for (std::size_t at; (at = shown.find('\0')) != std::string::npos;) shown.replace(at, 1, "␀");
    return fmt::format("将文本 '{}' 转换为{}时失败。", shown, wanted);
}

[[noreturn]] inline void unknownTable(std::string_view name) {
    throw RuntimeFailure(failure::unknownTable, fmt::format("对象名 '{}' 无效。", name));
}

[[noreturn]] inline void noNumber(std::string_view text) {
    throw RuntimeFailure(failure::badConversion, noConversion(text, "数值"));
}

[[noreturn]] inline void noDate(std::string_view text) {
    throw RuntimeFailure(failure::badConversion, noConversion(text, "日期"));
}

}  // namespace desk::tsql
