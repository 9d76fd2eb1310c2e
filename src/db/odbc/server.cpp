#include "db/odbc/server.h"

namespace desk::odbc {

OdbcStatement Server::send(std::string_view batch) {
    stopReading();
    return {connection_, batch};
}

long Server::run(std::string_view batch) {
    auto statement = send(batch);
    const long changed = statement.changedRows();
    statement.finish();
    return changed;
}

}  // namespace desk::odbc
