#include "sample/random.h"

#include <numeric>

namespace desk::sample {

std::size_t Random::weighted(std::span<const int> weights) {
    int left = between(0, std::accumulate(weights.begin(), weights.end(), 0) - 1);
    std::size_t place = 0;
    while (left >= weights[place]) left -= weights[place++];
    return place;
}

}  // namespace desk::sample
