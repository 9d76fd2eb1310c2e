#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace desk {

/// A display of its own for tests with real windows: an Xvfb on a free number, which DISPLAY names while this
/// lives. Both programs end with it.
class VirtualDisplay {
  public:
    enum class Manager { none, openbox };

    explicit VirtualDisplay(Manager manager);
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    /// False when Xvfb is not installed or does not come up.
    bool isUp() const { return up_; }

  private:
    void startManager();
    void run(const std::string& command);

    bool up_ = false;
    std::vector<pid_t> running_;
};

}  // namespace desk
