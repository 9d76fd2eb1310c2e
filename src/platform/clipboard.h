#pragma once

#include <string>

namespace desk {

/// The clipboard of the desktop.
class Clipboard {
  public:
    virtual ~Clipboard() = default;
    virtual void clear() = 0;
    /// Empty when it holds no text, or when the program that holds it does not hand it out.
    virtual std::string text() = 0;
};

}  // namespace desk
