#pragma once

namespace desk::desktop {

/// Lives while one window of a screen takes the place of another. Qt moves the focus meanwhile, out of a
/// field that is about to be hidden and into another: that is no person's doing.
class WindowChange {
  public:
    WindowChange() { ++running_; }
    ~WindowChange() { --running_; }
    WindowChange(const WindowChange&) = delete;
    WindowChange& operator=(const WindowChange&) = delete;

    static bool runs() { return running_ > 0; }

  private:
    static inline int running_ = 0;  ///< of the process, as the focus is
};

}  // namespace desk::desktop
