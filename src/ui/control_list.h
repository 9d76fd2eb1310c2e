#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "ui/signal.h"

namespace desk {

/// Controls of one kind that come and go while their screen lives. They are counted from 0; the last one goes
/// first.
template <class C>
class ControlList {
  public:
    /// Tells how the control of that place is made.
    using Maker = std::function<std::unique_ptr<C>(int place)>;

    explicit ControlList(Maker make) : make_(std::move(make)) {}

    int count() const { return static_cast<int>(controls_.size()); }
    C& operator[](int place) const { return *controls_.at(static_cast<std::size_t>(place)); }
    C& last() const { return *controls_.back(); }

    C& add() {
        controls_.push_back(make_(count()));
        C& made = last();
        added(made);
        return made;
    }
    /// There must be one.
    void removeLast() {
        const auto gone = std::move(controls_.back());
        controls_.pop_back();
    }
    void clear() {
        while (!controls_.empty()) removeLast();
    }

    Signal<C&> added;

  private:
    Maker make_;
    std::vector<std::unique_ptr<C>> controls_;
};

}  // namespace desk
