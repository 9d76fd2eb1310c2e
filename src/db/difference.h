#pragma once

#include <string>

namespace desk {

/// What of a table in the database is not as the catalogue has it, in words for whoever looks after it.
struct Difference {
    std::string text;
    bool harmful;  ///< something that the program writes would be refused, cut or changed
};

}  // namespace desk
