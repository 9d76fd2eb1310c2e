#pragma once

#include <string>

#include "admin/arguments.h"

namespace desk::admin {

/// The password of the user on a server that "--user" names: that of "--password" ("-" for the first line of
/// the standard input), else that of TENANT_DESK_PASSWORD, else what a person at a terminal types unseen.
/// Other users of the machine can read a command line, but not these. Empty where none of them gives one.
std::string passwordOf(const Arguments& arguments);

}  // namespace desk::admin
