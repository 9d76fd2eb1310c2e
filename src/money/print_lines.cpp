#include "money/print_lines.h"

#include <algorithm>

#include "base/failure.h"
#include "base/number.h"

namespace desk {

namespace {

double numberOrFail(const std::string& text) {
    const auto number = wholeNumber(text);
    if (!number) throw RuntimeFailure(failure::typeMismatch, "类型不匹配");
    return *number;
}

}  // namespace

void 添加票据信息(std::vector<收费行票据信息>& lines, const 收费列表& charges, int row) {
    using C = 收费列表;
    const auto at = static_cast<std::size_t>(row);
    if (lines.size() <= at) lines.resize(at + 1);
    auto& line = lines[at];
    line.行号 = toInt16(row);
    line.项目 = charges.text(row, C::收费项目);
    line.税控 = charges.行税控标记[at];
    line.数量 = numberOrFail(charges.text(row, C::数量));
    line.单价 = Money::of(charges.text(row, C::单价));
    line.金额 = Money::of(charges.text(row, C::金额));
    line.票据类型 = charges.text(row, C::票据类型);
    line.收费项目代号 = charges.行收费项目代号[at];
}

std::vector<打印组> 打印分组(const std::vector<收费行票据信息>& lines) {
    打印组 tax{打印组::税控, {}};
    std::vector<打印组> groups;
    for (const auto& line : lines) {
        if (line.行号 == 0) continue;
        if (line.税控) {
            tax.行.push_back(line.行号);
            continue;
        }
        auto group = std::find_if(groups.begin(), groups.end(),
                                  [&](const 打印组& each) { return each.名称 == line.票据类型; });
        if (group == groups.end()) group = groups.insert(group, {line.票据类型, {}});
        group->行.push_back(line.行号);
    }
    if (!tax.行.empty()) groups.insert(groups.begin(), std::move(tax));
    return groups;
}

}  // namespace desk
