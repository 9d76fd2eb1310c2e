#include "db/connection.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "db/connection_string.h"
#include "db/embedded/embedded.h"
#include "db/engine.h"
#include "schema/catalogue.h"

namespace desk {

Connection::Connection() = default;
Connection::~Connection() = default;
Connection::Connection(Connection&&) noexcept = default;
Connection& Connection::operator=(Connection&&) noexcept = default;

void Connection::open(std::string_view connectionString, std::chrono::seconds timeout) {
    engine_.reset();
    upgrade_.reset();
    const auto target = parseConnectionString(connectionString);
    if (target.dataSource.empty()) throw RuntimeFailure(failure::unspecified, "未指定数据库服务器。");
    if (!schema::sameName(target.dataSource, embedded::dataSource))
        throw RuntimeFailure(
            failure::unspecified,
            fmt::format("无法连接数据库服务器 '{}'：本程序未安装该服务器的驱动程序。", target.dataSource));
    auto opened = embedded::open(target.initialCatalog, timeout);
    engine_ = std::move(opened.engine);
    upgrade_ = std::move(opened.upgrade);
    if (wrap_) engine_ = wrap_(std::move(engine_));
}

void Connection::interpose(Wrap wrap) {
    wrap_ = std::move(wrap);
    if (engine_) engine_ = wrap_(std::move(engine_));
}

Engine& Connection::engine() const {
    if (!engine_)
        throw RuntimeFailure(failure::closedConnection,
                             "连接无法用于执行此操作。在此上下文中它可能已被关闭或无效。");
    return *engine_;
}

long Connection::execute(std::string_view statement) {
    return engine().execute(statement);
}
void Connection::begin() {
    engine().begin();
}
void Connection::commit() {
    engine().commit();
}
void Connection::rollback() {
    engine().rollback();
}

}  // namespace desk
