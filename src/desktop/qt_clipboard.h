#pragma once

#include <chrono>

#include "platform/clipboard.h"

namespace desk::desktop {

/// The clipboard of the desktop that the windows are on. On X11 the program that holds it is asked without
/// the toolkit, which would stand still until that program answers.
class QtClipboard : public Clipboard {
  public:
    /// How long a program may take to hand out what it holds.
    explicit QtClipboard(std::chrono::milliseconds patience = std::chrono::seconds(1))
        : patience_(patience) {}

    void clear() override;
    /// Lets events run while it waits, but no person's.
    std::string text() override;

  private:
    std::chrono::milliseconds patience_;
};

}  // namespace desk::desktop
