#include "db/upgrade.h"

#include <fmt/format.h>

namespace desk {

std::string Upgrade::told() const {
    if (from == to) return fmt::format("数据库文件已补建索引等定义，补建前的副本：{}", copy);
    return fmt::format("数据库文件已由版本 {} 升级到版本 {}，升级前的副本：{}", from, to, copy);
}

}  // namespace desk
