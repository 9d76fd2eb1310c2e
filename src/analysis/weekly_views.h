#pragma once

#include <variant>
#include <vector>

#include "db/statement.h"

namespace desk {

/// Counts the leads in whose column a name of a dictionary stands, for each name.
struct 字典统计 {
    Name 列;
    Name 名称表;
    const char* 名称列;
};

/// Counts the leads of each stored value.
struct 数值统计 {
    Name 列;
    Fragment 选取;  ///< the value and its count
};

/// Counts the leads of each day.
struct 逐日统计 {};

/// One of the questions that a weekly screen answers, and the section of its table that tells the answer.
struct 统计视图 {
    const char* 键;    ///< of its node
    const char* 名称;  ///< the text of its node
    const char* 表头;
    std::variant<字典统计, 数值统计, 逐日统计> 算法;
};

/// What the weekly screens differ by.
struct 每周统计 {
    const char* screenName;
    const char* caption;
    const char* 客源类别;  ///< of the leads that count
    std::vector<统计视图> 视图;
};

/// Those who came in person.
const 每周统计& 来客统计();
/// Those who telephoned; they are not asked for a rent.
const 每周统计& 来电统计();

}  // namespace desk
