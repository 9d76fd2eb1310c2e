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

[[noreturn]] inline void noNumber(std::string_view text) {
    throw RuntimeFailure(failure::badConversion, fmt::format("将文本 '{}' 转换为数值时失败。", text));
}

[[noreturn]] inline void noDate(std::string_view text) {
    throw RuntimeFailure(failure::badConversion, fmt::format("将文本 '{}' 转换为日期时失败。", text));
}

}  // namespace desk::tsql
