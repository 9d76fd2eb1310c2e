#pragma once

#include <chrono>
#include <memory>

#include "db/odbc/driver_text.h"
#include "db/odbc/odbc_connection.h"

namespace desk::odbc {

/// Connects and logs in. Fails with -2147467259 and a text for the person at the desk.
std::shared_ptr<OdbcConnection> login(const ConnectionTarget& target, const DriverSettings& settings,
                                      std::chrono::seconds timeout);

}  // namespace desk::odbc
