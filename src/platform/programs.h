#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// Other programs on the same desktop.
class Programs {
  public:
    virtual ~Programs() = default;
    /// Whether there is a top-level window with exactly that title.
    virtual bool hasWindow(std::string_view title) = 0;
    /// Brings the top-level window with exactly that title to the front. Fails with 5 when there is none.
    virtual void activate(std::string_view title) = 0;
    /// Starts a program; false when it cannot be started.
    virtual bool start(const std::string& program, const std::vector<std::string>& arguments) = 0;
    /// Starts a program whose window is to stay out of the way but to have the keyboard, and does not wait
    /// for it. Gives the program's process; fails with 53 when it cannot be started.
    virtual std::int64_t startMinimised(const std::string& program) = 0;
    /// Whether a process that startMinimised() gave has not ended yet.
    virtual bool isRunning(std::int64_t process) = 0;
    /// Opens an address or a file with the program that the user has chosen for it; false when there is none.
    virtual bool openForUser(const std::string& what) = 0;
};

}  // namespace desk
