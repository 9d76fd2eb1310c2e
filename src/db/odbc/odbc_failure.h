#pragma once

#include <sql.h>

#include <string>
#include <vector>

#include "base/failure.h"

namespace desk::odbc {

/// One thing that a driver says of a call that failed.
struct Diagnosis {
    std::string state;
    long number = 0;  ///< the server's, or the driver's own
    std::string text;
};

/// All that the driver says of the last call on a handle, first things first.
std::vector<Diagnosis> diagnosesOf(SQLSMALLINT kind, SQLHANDLE handle);

/// Of those the one that tells why the call failed.
Diagnosis causeOf(const std::vector<Diagnosis>& diagnoses);

/// Whether it says that there is no line to the server any more.
bool tellsLostServer(const Diagnosis& diagnosis);

/// A failure of a statement as Connection tells it.
RuntimeFailure failureOf(const Diagnosis& diagnosis);

}  // namespace desk::odbc
