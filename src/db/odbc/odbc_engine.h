#pragma once

#include <chrono>

#include "db/connection_string.h"
#include "db/engines.h"

/// The engine for a database on a server, by an ODBC driver of this machine.
namespace desk::odbc {

/// Connects to the database that `target` names, encrypted where the server can; with a file of trusted
/// certificates only to a server that has one of them. `timeout` bounds the wait for the server, and for each
/// answer. Fails with -2147467259 and a text that says what is wrong.
OpenedEngine open(const ConnectionTarget& target, std::chrono::seconds timeout);

}  // namespace desk::odbc
