#pragma once

#include <string>
#include <vector>

#include "platform/x11/x11_programs.h"

namespace desk {

/// The program tests/platform/form, on the display that DISPLAY names, with the keyboard in its first field.
class FormInFront {
  public:
    FormInFront();
    ~FormInFront();
    FormInFront(const FormInFront&) = delete;
    FormInFront& operator=(const FormInFront&) = delete;

    /// False when it has not come up.
    bool isUp() const { return up_; }
    /// All that it has written down, once there are `count` lines of it; fewer if they do not come.
    std::vector<std::string> lines(std::size_t count) const;
    /// Begins a new page.
    void forgetLines() const;

  private:
    std::string journal() const { return folder_ + "/journal"; }
    bool bring();

    std::string folder_;
    X11Programs programs_;
    std::int64_t process_ = 0;
    bool up_ = false;
};

}  // namespace desk
