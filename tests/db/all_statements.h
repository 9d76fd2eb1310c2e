#pragma once

#include <string>
#include <vector>

namespace desk {

/// Every statement of the system with values in its braces, in the order of statements.txt.
std::vector<std::string> allStatements();

}  // namespace desk
