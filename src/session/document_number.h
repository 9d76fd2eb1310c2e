#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "db/statement.h"

namespace desk {

class Application;

/// What stands in the field of a number that will be drawn, and of one that is to be typed. Neither is a
/// number.
inline constexpr std::string_view 自动编号提示 = "<保存时自动生成编号>";
inline constexpr std::string_view 输入编号提示 = "<请输入登记编号>";

/// The prefix of a number for a document of that kind, by `Temp_Type`; empty for a kind without a rule.
std::string 生成单据前缀(Application& app, std::string_view TypeName);

/// The number behind the highest of the office `管理处代号` in `table`, 1 for an office without one. Two
/// seats can compute the same: only a look at the table shows it.
long next流水号(Application& app, Name table, std::string_view 管理处代号);

/// A number that a new document has drawn.
struct DocumentNumber {
    std::string text;
    long 流水号;
};

/// The first number from `流水号` on that is not `taken`; `textOf` writes a serial as a number. Another seat
/// can take it at any moment afterwards.
DocumentNumber firstFree(long 流水号, const std::function<std::string(long)>& textOf,
                         const std::function<bool(const std::string&)>& taken);

/// The next number of the office for a document of that kind that is not `taken`; see the functions that it
/// is made of.
DocumentNumber drawNumber(Application& app, std::string_view TypeName, Name table,
                          std::string_view 管理处代号, const std::function<bool(const std::string&)>& taken);

/// "{prefix}-{serial}", the serial of six digits or more.
std::string documentNumberText(std::string_view prefix, long 流水号);

}  // namespace desk
