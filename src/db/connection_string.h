#pragma once

#include <string>
#include <string_view>

namespace desk {

/// What an OLE DB connection string says about the database.
struct ConnectionTarget {
    std::string dataSource;
    std::string initialCatalog;
    std::string userId;
    std::string password;
};

/// Reads "key=value;…". Keys are case-insensitive, and the last of several equal ones counts. A value is
/// bare, up to the next semicolon, or in single or double quotes, a doubled quote standing for one. Fails
/// with -2147467259 when the text does not follow that grammar.
ConnectionTarget parseConnectionString(std::string_view text);

/// What the program opens where its settings have these values. They stand in it as they are: a quote in one
/// means what it means to the driver.
std::string connectionStringOf(std::string_view UID, std::string_view PWD, std::string_view DBname,
                               std::string_view Svr);

}  // namespace desk
