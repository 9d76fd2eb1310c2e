#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/replaced_file.h"

namespace desk::xls {

/// A file or a folder inside a compound file.
struct Entry {
    std::string name;
    bool isFolder = false;
    std::vector<std::string> parts;  ///< of a file, one behind the other
    std::vector<Entry> children;     ///< of a folder
    std::array<char, 16> classId{};  ///< of a folder
};

/// All of a compound file. Fails with 1004 if `file` is none, or is damaged.
Entry readContainer(std::string_view file);
/// Writes the compound file that holds `root`; false where `file` refuses.
bool writeContainer(const Entry& root, NewFile& file);
std::string writeContainer(const Entry& root);

}  // namespace desk::xls
