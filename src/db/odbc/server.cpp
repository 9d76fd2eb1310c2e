#include "db/odbc/server.h"

namespace desk::odbc {

OdbcStatement Server::send(std::string_view batch) {
    stopReading();
    if (inTransaction_) requireTransaction();
    return {connection_, batch};
}

void Server::setInTransaction(bool now) {
    inTransaction_ = now;
    undone_ = false;
    connection_->takeFailed();
}

/// Some failures, that of who loses to another seat above all, undo all that the transaction has written;
/// what came afterwards would stand alone.
void Server::requireTransaction() {
    if (connection_->takeFailed()) {
        OdbcStatement open(connection_, "Select @@TranCount");
        undone_ = open.step() && open.integer(0) == 0;
        open.finish();
    }
    if (undone_)
        throw RuntimeFailure(failure::unspecified, "数据库服务器已撤消了这一事务，其中的写入都没有保存。");
}

long Server::run(std::string_view batch) {
    auto statement = send(batch);
    const long changed = statement.changedRows();
    statement.finish();
    return changed;
}

}  // namespace desk::odbc
