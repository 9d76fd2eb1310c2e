#pragma once

namespace desk {

/// Keeps a control's observers quiet while it lives, so that a fill of any size is one repaint.
template <class Filled>
class Batch {
  public:
    explicit Batch(Filled& control) : control_(control) { control_.beginUpdate(); }
    ~Batch() { control_.endUpdate(); }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

  private:
    Filled& control_;
};

}  // namespace desk
