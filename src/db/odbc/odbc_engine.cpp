#include "db/odbc/odbc_engine.h"

#include <utility>

#include "base/failure.h"
#include "db/forward_cursor.h"
#include "db/odbc/column_check.h"
#include "db/odbc/login.h"
#include "db/odbc/server.h"
#include "db/odbc/server_cursor.h"
#include "db/odbc/server_words.h"
#include "db/tsql/front.h"

namespace desk::odbc {

namespace {

[[noreturn]] void givesNoRows() {
    throw RuntimeFailure(failure::closedRecordset, "对象关闭时，不允许操作：该语句不返回行。");
}

class OdbcEngine : public Engine {
  public:
    explicit OdbcEngine(std::shared_ptr<Server> server) : server_(std::move(server)) {}

    std::unique_ptr<Cursor> open(std::string_view statement, Rows mode) override {
        const auto sent = serverStatement(statement);
        if (sent.writes) {
            tsql::understand(statement);  // what is wrong with it goes first
            givesNoRows();
        }
        auto answer = server_->send(sent.text);
        if (answer.columns().empty()) givesNoRows();
        if (mode == Rows::updatable)
            return std::make_unique<ServerCursor>(server_, std::move(answer),
                                                  tsql::understand(statement).table);
        auto columns = answer.columns();
        return std::make_unique<ForwardCursor<OdbcStatement>>(server_, std::move(answer), std::move(columns));
    }

    long execute(std::string_view statement) override {
        return server_->run(serverStatement(statement).text);
    }

    void begin() override {
        requireTransaction(false, "已有一个事务尚未结束。");
        server_->run("Begin Transaction");
        server_->setInTransaction(true);
    }
    void commit() override {
        requireTransaction(true, "没有打开的事务。");
        server_->setInTransaction(false);
        server_->run("Commit Transaction");
    }
    void rollback() override {
        requireTransaction(true, "没有打开的事务。");
        server_->setInTransaction(false);
        // Some failures have undone it already.
        server_->run("If @@TranCount>0 Rollback Transaction");
    }

    std::vector<Difference> differencesOf(const schema::Table& table) override {
        return odbc::differencesOf(*this, table);
    }

  private:
    void requireTransaction(bool open, const char* otherwise) const {
        if (server_->inTransaction() != open) throw RuntimeFailure(failure::unspecified, otherwise);
    }

    std::shared_ptr<Server> server_;
};

}  // namespace

OpenedEngine open(const ConnectionTarget& target, std::chrono::seconds timeout) {
    auto server = std::make_shared<Server>(login(target, DriverSettings::ofEnvironment(), timeout));
    // Days are written year first, whatever the language of the login.
    server->run("Set DateFormat ymd");
    return {std::make_unique<OdbcEngine>(std::move(server))};
}

}  // namespace desk::odbc
