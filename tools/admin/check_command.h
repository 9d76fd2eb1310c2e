#pragma once

#include <string>
#include <vector>

namespace desk::admin {

/// "check": tells whether the settings lead to a database that the program can work with: reachable, login
/// accepted, all tables and columns there and of their kinds. What differs is printed, with whether it
/// matters. Fails where one of these does not hold. It only reads, but a file of an older program is brought
/// up first.
void check(const std::vector<std::string>& words);

}  // namespace desk::admin
