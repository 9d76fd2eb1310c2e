#pragma once

#include "platform/programs.h"

namespace desk {

/// Other programs on an X11 desktop. The server is the one that DISPLAY names; it is asked anew at each call.
class X11Programs : public Programs {
  public:
    /// Asks the window manager, and waits until it has done so, at most a second. Without a window manager
    /// the window is raised and given the keyboard directly. Fails with 5 also when there is no server.
    void activate(std::string_view title) override;
    bool start(const std::string& program, const std::vector<std::string>& arguments) override;
    /// Through xdg-open; false when that is not installed, or says at once that it knows no program.
    bool openForUser(const std::string& what) override;
};

}  // namespace desk
