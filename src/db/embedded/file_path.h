#pragma once

#include <filesystem>
#include <string>

namespace desk::embedded {

/// A path in this program's text as the system's own.
inline std::filesystem::path pathOf(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

}  // namespace desk::embedded
