#pragma once

#include <string>

namespace desk {

/// What opening has done to a database file so that this program can work with it.
struct Upgrade {
    int from = 0;      ///< the version of the file's definition before
    int to = 0;        ///< and now
    std::string copy;  ///< the file that holds everything as it stood before

    /// In words for the person at the desk.
    std::string told() const;
};

}  // namespace desk
