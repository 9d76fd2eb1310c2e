#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace desk {

/// Keeps a slot of a Signal connected while it lives.
using Subscription = std::shared_ptr<void>;

/// Tells its slots that something happened, in the order in which they were connected. A slot may connect
/// further slots, drop its subscription or destroy the owner of the signal while it runs.
template <class... Args>
class Signal {
  public:
    using Slot = std::function<void(Args...)>;

    /// Connects `slot` for as long as the signal lives.
    void operator+=(Slot slot) { slots_.push_back({std::make_shared<Slot>(std::move(slot)), {}, false}); }

    /// Connects `slot` for as long as the returned subscription lives.
    [[nodiscard]] Subscription connect(Slot slot) {
        auto held = std::make_shared<Slot>(std::move(slot));
        slots_.push_back({nullptr, held, true});
        return held;
    }

    void operator()(Args... args) const {
        const auto called = slots_;
        for (const auto& entry : called) {
            const auto slot = entry.borrowed ? entry.watched.lock() : entry.owned;
            if (slot) (*slot)(args...);
        }
    }

  private:
    struct Entry {
        std::shared_ptr<Slot> owned;
        std::weak_ptr<Slot> watched;
        bool borrowed;
    };
    std::vector<Entry> slots_;
};

}  // namespace desk
