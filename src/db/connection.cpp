#include "db/connection.h"

#include "base/failure.h"
#include "db/engines.h"
#include "db/failing_statement.h"

namespace desk {

Connection::Connection() = default;
Connection::~Connection() = default;
Connection::Connection(Connection&&) noexcept = default;
Connection& Connection::operator=(Connection&&) noexcept = default;

void Connection::open(std::string_view connectionString, std::chrono::seconds timeout) {
    engine_.reset();
    auto opened = openEngine(parseConnectionString(connectionString), timeout);
    engine_ = std::move(opened.engine);
    if (opened.upgrade) upgrade_ = std::move(opened.upgrade);
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
    return naming(statement, [&] { return engine().execute(statement); });
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
std::vector<Difference> Connection::differencesOf(const schema::Table& table) {
    return engine().differencesOf(table);
}

}  // namespace desk
