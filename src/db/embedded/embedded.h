#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "db/engines.h"

/// The engine for a database in a file on this machine. It takes the same T-SQL as a server.
namespace desk::embedded {

/// The Data Source of a connection string that means this engine.
inline constexpr std::string_view dataSource = "(embedded)";

/// The name of a database that lives in memory, as long as its connection.
inline constexpr std::string_view inMemory = ":memory:";

/// Opens the database in the file `path`, or a new empty one in memory. `timeout` bounds the wait for another
/// seat that holds the file. A file that an older program has made is brought up first. Fails with
/// -2147467259 when there is no such file, when it cannot be read or written, is damaged, comes from a newer
/// program, or is no database of this system; the file is then left as it is.
OpenedEngine open(const std::string& path, std::chrono::seconds timeout);

/// Brings the file `path` up as opening does, and makes anew, empty, what it lacks though it is of the
/// present version. Nothing if there is nothing to do. Fails as open() does.
std::optional<Upgrade> upgrade(const std::string& path, std::chrono::seconds timeout);

/// Writes a copy of the database in the file `path` to the new file `to`, also while seats work with it: the
/// copy is as it stood at one moment. Fails with -2147467259 when there is no such database, it is damaged,
/// or the copy cannot be written.
void backup(const std::string& path, const std::string& to, std::chrono::seconds timeout);

/// Makes the file `path` with all tables, empty. Fails with -2147467259 when there is a file already, or none
/// can be written there.
void createDatabase(const std::string& path);

}  // namespace desk::embedded
