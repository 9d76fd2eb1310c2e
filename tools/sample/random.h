#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <span>

namespace desk::sample {

/// Random choices that are the same with every compiler and library: the engine is defined to the bit, and
/// the way from its numbers to choices is written here, as the standard's own distributions differ from
/// library to library.
class Random {
  public:
    /// Each part of the sample has a stream of its own, so that more of one does not change another.
    Random(std::uint64_t seed, std::uint64_t stream) : engine_(seed * 0x9E3779B97F4A7C15U + stream) {}

    /// 0 to `count` - 1.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
    /// `low` to `high`, both included.
    int between(int low, int high) {
        return low + static_cast<int>(below(static_cast<std::size_t>(high - low + 1)));
    }
    /// True in `percent` of a hundred cases.
    bool chance(int percent) { return between(0, 99) < percent; }

    template <class List>
    const auto& pick(const List& list) {
        return std::data(list)[below(std::size(list))];
    }

    /// The place of one of `weights`, each as likely as its weight.
    std::size_t weighted(std::span<const int> weights);
    std::size_t weighted(std::initializer_list<int> weights) {
        return weighted(std::span<const int>(weights.begin(), weights.size()));
    }

  private:
    std::mt19937_64 engine_;
};

}  // namespace desk::sample
