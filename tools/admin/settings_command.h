#pragma once

#include <string>
#include <vector>

namespace desk::admin {

/// Where the program looks for its settings.
inline constexpr const char* settingsApplication = "鸿序楼台";
inline constexpr const char* settingsSection = "DBConfig";

/// "settings …": writes which database the program opens, or prints it when nothing is said.
void settings(const std::vector<std::string>& words);

}  // namespace desk::admin
