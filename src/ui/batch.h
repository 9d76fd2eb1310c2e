#pragma once

#include <exception>

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

/// A batch that fills a control anew: empties it first, and once more where a failure breaks the fill off, so
/// that nobody takes the half for the whole.
template <class Filled>
class Refill {
  public:
    explicit Refill(Filled& control) : batch_(control), control_(control) { control_.clear(); }
    ~Refill() {
        if (std::uncaught_exceptions() > failuresBefore_) control_.clear();
    }
    Refill(const Refill&) = delete;
    Refill& operator=(const Refill&) = delete;

  private:
    Batch<Filled> batch_;
    Filled& control_;
    const int failuresBefore_ = std::uncaught_exceptions();
};

}  // namespace desk
