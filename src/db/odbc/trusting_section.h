#pragma once

#include <optional>
#include <string>

#include "db/odbc/driver_text.h"

namespace desk::odbc {

/// What the usual driver must find in a configuration file of its own, as a connection string cannot say it:
/// the server, and the certificates that it is held against. There as long as the object lives.
class TrustingSection {
  public:
    /// Fails with -2147467259 when `certificates` cannot be read, or the file cannot be written.
    TrustingSection(const ServerAddress& address, const std::string& certificates);
    ~TrustingSection();
    TrustingSection(const TrustingSection&) = delete;
    TrustingSection& operator=(const TrustingSection&) = delete;

    std::string name() const { return "tenant-desk"; }

  private:
    std::string file_;
    std::optional<std::string> before_;  ///< the file that the driver would have read
};

}  // namespace desk::odbc
