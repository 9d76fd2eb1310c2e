#pragma once

#include <optional>
#include <string>

#include "db/connection_string.h"

namespace desk::odbc {

/// A server as a connection string names it: "host", "host,port" or "host\instance".
struct ServerAddress {
    std::string host;
    std::string instance{};  ///< whose port the server's own machine tells
    int port = 1433;         ///< where no instance is named
};

/// Fails with -2147467259 where the port is none.
ServerAddress serverAddress(const std::string& dataSource);

/// The driver that is used where no other is named.
inline constexpr const char* usualDriver = "FreeTDS";

/// What the user may set for servers alone, besides the connection string.
struct DriverSettings {
    std::string driver = usualDriver;  ///< by the name under which it is installed
    std::string certificates{};        ///< the file of those that are trusted; empty: any is

    bool isUsual() const { return driver == usualDriver; }

    /// From TENANT_DESK_ODBC_DRIVER and TENANT_DESK_CERTIFICATES.
    static DriverSettings ofEnvironment();
};

enum class Encryption {
    required,
    wherePossible,  ///< by the usual driver: of the login at least
};

/// What the driver is told to connect to `target`. `section` is where the driver's own configuration speaks
/// of the server; none: it is addressed directly. Fails with -2147467259 where a value cannot be told to it.
std::string driverText(const ConnectionTarget& target, const DriverSettings& settings, Encryption encryption,
                       const std::optional<std::string>& section = {});

}  // namespace desk::odbc
