#pragma once

#include <sql.h>

#include <chrono>
#include <string>
#include <utility>

#include "db/odbc/odbc_failure.h"

namespace desk::odbc {

/// A connection by a driver of this machine.
class OdbcConnection {
  public:
    /// `timeout` bounds the wait for the server, and later for each statement's answer.
    explicit OdbcConnection(std::chrono::seconds timeout);
    ~OdbcConnection();
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;

    /// Connects as `driverText` says; where that fails, what the driver says of it.
    std::vector<Diagnosis> connect(const std::string& driverText);

    /// Whether the driver knows that the line has gone.
    bool isLost() const;

    SQLHDBC handle() const { return connection_; }
    std::chrono::seconds timeout() const { return timeout_; }

    /// Whether a statement has failed since this was asked for the last time.
    bool takeFailed() { return std::exchange(failed_, false); }
    void statementFailed() { failed_ = true; }

  private:
    SQLHENV environment_ = nullptr;
    SQLHDBC connection_ = nullptr;
    std::chrono::seconds timeout_;
    bool connected_ = false;
    bool failed_ = false;
};

}  // namespace desk::odbc
