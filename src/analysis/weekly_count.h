#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "analysis/weekly_views.h"
#include "base/date.h"
#include "db/connection.h"

namespace desk {

/// Which leads count.
struct 统计范围 {
    std::string 管理处;
    DateTime 开始;
    DateTime 结束;
    std::string 开始文本;  ///< as the desktop writes the day
    std::string 结束文本;
    const char* 客源类别;
};

/// A line of an answer.
struct 统计项 {
    std::string 名称;
    std::string 数量文本;
    float 数量;
};

/// Answers `view`. `goOn` is told after each statement how many of how many are done, and may let events run;
/// false gives the answer up. Then there is none.
std::optional<std::vector<统计项>> 计数(Connection& connection, const 统计视图& view, const 统计范围& range,
                                        const std::function<bool(long done, long total)>& goOn);

/// The part that `count` is of `total`, with the digits of single precision: "12.50%"; empty where the total
/// is 0.
std::string 占比例(float count, float total);

}  // namespace desk
