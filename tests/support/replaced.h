#pragma once

#include <string>
#include <string_view>

namespace desk {

/// With `by` wherever `mark` stands.
inline std::string replaced(std::string all, std::string_view mark, std::string_view by) {
    for (auto at = all.find(mark); at != std::string::npos; at = all.find(mark, at + by.size()))
        all.replace(at, mark.size(), by);
    return all;
}

}  // namespace desk
