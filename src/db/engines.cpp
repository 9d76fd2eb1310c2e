#include "db/engines.h"

#include "base/failure.h"
#include "db/embedded/embedded.h"
#include "db/odbc/odbc_engine.h"
#include "schema/catalogue.h"

namespace desk {

OpenedEngine openEngine(const ConnectionTarget& target, std::chrono::seconds timeout) {
    if (target.dataSource.empty()) throw RuntimeFailure(failure::unspecified, "未指定数据库服务器。");
    if (schema::sameName(target.dataSource, embedded::dataSource))
        return embedded::open(target.initialCatalog, timeout);
    return odbc::open(target, timeout);
}

}  // namespace desk
