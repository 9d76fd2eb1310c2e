#pragma once

#include <string>
#include <vector>

#include "platform/spreadsheets.h"

namespace desk {

/// A worksheet in words: its name, widths and merges, then a line for each row. There each look is said once
/// for the cells beside each other that share it, and last of all that of the row where it has one.
std::vector<std::string> inWords(const Worksheet& sheet);

}  // namespace desk
