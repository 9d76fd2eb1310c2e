#pragma once

#include <memory>
#include <string_view>

#include "db/odbc/odbc_statement.h"
#include "db/readers.h"

namespace desk::odbc {

/// An open connection to a server, and the cursor that reads from it at this moment: the server has one
/// answer under way at a time, so what is left of it is read into memory before anything else is sent.
class Server : public Readers {
  public:
    explicit Server(std::shared_ptr<OdbcConnection> connection) : connection_(std::move(connection)) {}

    /// Sends one statement or several. Fails as Connection::execute does, and also within a transaction that
    /// the server has undone.
    OdbcStatement send(std::string_view batch);
    /// Sends it, and reads its answers to the end; how many rows the first has changed.
    long run(std::string_view batch);

    bool inTransaction() const { return inTransaction_; }
    void setInTransaction(bool now);

  private:
    void requireTransaction();

    std::shared_ptr<OdbcConnection> connection_;
    bool inTransaction_ = false;
    bool undone_ = false;  ///< the server has ended the transaction, and nobody has ended it here yet
};

}  // namespace desk::odbc
