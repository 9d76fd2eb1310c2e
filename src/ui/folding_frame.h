#pragma once

#include "ui/link.h"

namespace desk {

/// A part at the left of its screen that a person hides, so that its room goes to what stands beside it. A
/// narrow strip in its place shows it again. The focus goes from the one link to the other, so that the key
/// that hid it shows it again.
class FoldingFrame : public Frame {
  public:
    /// Shown at first.
    FoldingFrame(Place place, std::string name, std::string caption = {});

    bool isFolded() const { return !visible(); }
    void fold();
    void unfold();

    Link 隐藏{*this, "隐藏", "隐藏"};
    Link 显示;  ///< there while it is folded
};

}  // namespace desk
