#pragma once

#include <string>
#include <vector>

namespace desk::admin {

/// "check": tells whether the settings lead to a database that the program can work with: reachable, login
/// accepted, all tables and columns there. Fails where one of these does not hold.
void check(const std::vector<std::string>& words);

}  // namespace desk::admin
