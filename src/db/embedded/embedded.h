#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "db/engine.h"

/// The engine for a database in a file on this machine. It takes the same T-SQL as a server.
namespace desk::embedded {

/// The Data Source of a connection string that means this engine.
inline constexpr std::string_view dataSource = "(embedded)";

/// The name of a database that lives in memory, as long as its connection.
inline constexpr std::string_view inMemory = ":memory:";

/// Opens the database in the file `path`, or a new empty one in memory. `timeout` bounds the wait for another
/// seat that holds the file. Fails with -2147467259 when there is no such file, when it cannot be read, is
/// damaged or is no database of this system; the file is then left as it is.
std::unique_ptr<Engine> open(const std::string& path, std::chrono::seconds timeout);

/// Makes the file `path` with all tables, empty. Fails with -2147467259 when there is a file already, or none
/// can be written there.
void createDatabase(const std::string& path);

}  // namespace desk::embedded
