#pragma once

#include "platform/clipboard.h"

namespace desk::desktop {

/// The clipboard as the toolkit shares it with other programs.
class QtClipboard : public Clipboard {
  public:
    void clear() override;
    std::string text() override;
};

}  // namespace desk::desktop
