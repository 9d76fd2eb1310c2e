#pragma once

#include "db/connection.h"

namespace desk {

/// A transaction that is rolled back unless it has been committed:
///
///     Transaction all(connection);
///     connection.execute(…);
///     connection.execute(…);
///     all.commit();
class Transaction {
  public:
    /// Fails with -2147467259 where one is open already.
    explicit Transaction(Connection& connection) : connection_(&connection) { connection.begin(); }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Writes all of it. Where that fails, none of it is written.
    void commit();

  private:
    Connection* connection_;  ///< null once it is committed
};

}  // namespace desk
