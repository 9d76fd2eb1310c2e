#pragma once

namespace desk {

/// Keeps those who show a control quiet while it lives, so that a fill of any size is one repaint. They show
/// it through the edge, which no failure leaves: so the destructor raises nothing that can fail.
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
