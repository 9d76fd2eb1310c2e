#pragma once

#include <string>
#include <vector>

#include "db/connection.h"

namespace desk::admin {

/// Opens the embedded database in `file`. Fails as Connection::open does.
Connection openFile(const std::string& file);

/// "create FILE", or a server: makes an empty database, on a server its tables in one that has none.
void create(const std::vector<std::string>& words);
/// "ddl sqlite|sqlserver": prints the definition of all tables.
void printDefinition(const std::vector<std::string>& words);
/// "sample FILE …", or a server: makes a database with a sample property. The file appears only when it is
/// complete.
void sample(const std::vector<std::string>& words);
/// "upgrade FILE": brings a database of an older program up, and mends the definition of a damaged one.
void upgrade(const std::vector<std::string>& words);
/// "backup FILE TO": copies a database, also while seats work with it.
void backup(const std::vector<std::string>& words);
/// "logins FILE": prints who can log in, and what they may do.
void printLogins(const std::vector<std::string>& words);

}  // namespace desk::admin
