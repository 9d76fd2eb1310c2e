#pragma once

#include <string>
#include <vector>

namespace desk::admin {

/// "settings …": writes which database the program opens, or prints it when nothing is said.
void settings(const std::vector<std::string>& words);

}  // namespace desk::admin
