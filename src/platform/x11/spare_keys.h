#pragma once

#include <X11/Xlib.h>

#include <vector>

#include "platform/x11/keyboards.h"

namespace desk::x11 {

/// The keys that no keyboard makes anything of. They are lent to symbols that are on no key, and mean nothing
/// again when this goes.
class SpareKeys {
  public:
    SpareKeys(Display* display, const Keyboards& keyboards);
    ~SpareKeys() { takeBack(); }
    SpareKeys(const SpareKeys&) = delete;
    SpareKeys& operator=(const SpareKeys&) = delete;

    std::size_t count() const { return codes_.size(); }
    /// Lends the n-th spare key to the n-th symbol, in every layout and whatever is held, in the place of
    /// what it was lent to before. Programs learn of it when they get round to it.
    void lend(const std::vector<KeySym>& symbols);
    /// The key that the n-th symbol got.
    KeyCode code(std::size_t n) const { return codes_[n]; }

  private:
    void takeBack();
    /// Changes the first `used_` spare keys on each keyboard. `change` tells whether there was anything to
    /// do.
    template <class Change>
    void changeEach(Change change);

    Display* display_;
    std::vector<int> keyboards_;
    std::vector<KeyCode> codes_;
    std::size_t used_ = 0;  ///< so many of them have been lent so far
};

}  // namespace desk::x11
