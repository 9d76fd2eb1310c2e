#include "db/engines.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "db/embedded/embedded.h"
#include "schema/catalogue.h"

namespace desk {

OpenedEngine openEngine(const ConnectionTarget& target, std::chrono::seconds timeout) {
    if (target.dataSource.empty()) throw RuntimeFailure(failure::unspecified, "未指定数据库服务器。");
    if (schema::sameName(target.dataSource, embedded::dataSource))
        return embedded::open(target.initialCatalog, timeout);
    throw RuntimeFailure(
        failure::unspecified,
        fmt::format("无法连接数据库服务器 '{}'：本程序未安装该服务器的驱动程序。", target.dataSource));
}

}  // namespace desk
