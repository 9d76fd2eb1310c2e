#pragma once

#include <map>

#include "platform/processes.h"
#include "platform/programs.h"

namespace desk {

/// Other programs on an X11 desktop. The server is the one that DISPLAY names; it is asked anew at each call.
class X11Programs : public Programs {
  public:
    /// Without a server there is no window.
    bool hasWindow(std::string_view title) override;
    /// Asks the window manager, and waits until it has done so, at most a second. Without a window manager
    /// the window is raised and given the keyboard directly. Fails with 5 also when there is no server.
    void activate(std::string_view title) override;
    bool start(const std::string& program, const std::vector<std::string>& arguments) override;
    /// Here a minimised window never has the keyboard. What is typed next is meant for the program, so its
    /// window comes up as the program itself shows it.
    std::int64_t startMinimised(const std::string& program) override;
    bool isRunning(std::int64_t process) override;
    /// Through xdg-open; false when that is not installed, or says at once that it knows no program.
    bool openForUser(const std::string& what) override;

  private:
    std::map<std::int64_t, RunningProgram> running_;
};

}  // namespace desk
