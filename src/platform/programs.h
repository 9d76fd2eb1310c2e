#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// Other programs on the same desktop.
class Programs {
  public:
    virtual ~Programs() = default;
    /// Brings the top-level window with exactly that title to the front. Fails with 5 when there is none.
    virtual void activate(std::string_view title) = 0;
    /// Starts a program; false when it cannot be started.
    virtual bool start(const std::string& program, const std::vector<std::string>& arguments) = 0;
    /// Opens an address or a file with the program that the user has chosen for it; false when there is none.
    virtual bool openForUser(const std::string& what) = 0;
};

}  // namespace desk
