#include "ui/column_shares.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace desk {

namespace {

/// Parts `amount` among the columns in proportion to `weights`, to the last unit.
void part(std::vector<int>& widths, const std::vector<int>& weights, int amount) {
    std::int64_t left = std::accumulate(weights.begin(), weights.end(), std::int64_t{0});
    for (std::size_t i = 0; i < widths.size() && left > 0; ++i) {
        const auto share = static_cast<int>(std::int64_t{amount} * weights[i] / left);
        widths[i] += share;
        amount -= share;
        left -= weights[i];
    }
}

}  // namespace

std::vector<int> columnShares(const std::vector<ColumnWish>& wishes, int available) {
    std::vector<int> widths;
    std::vector<int> lacking;
    std::vector<int> takers;
    std::vector<int> dispensable;
    for (const ColumnWish& wish : wishes) {
        widths.push_back(wish.width);
        lacking.push_back(std::max(wish.needed - wish.width, 0));
        dispensable.push_back(wish.takesSpare ? std::max(wish.width - wish.needed, 0) : 0);
    }
    const auto spare = [&] { return available - std::accumulate(widths.begin(), widths.end(), 0); };
    if (spare() <= 0) {
        if (-spare() <= std::accumulate(dispensable.begin(), dispensable.end(), 0))
            part(widths, dispensable, spare());
        return widths;
    }
    part(widths, lacking, std::min(spare(), std::accumulate(lacking.begin(), lacking.end(), 0)));
    for (std::size_t i = 0; i < wishes.size(); ++i) takers.push_back(wishes[i].takesSpare ? widths[i] : 0);
    if (spare() > 0) part(widths, takers, spare());
    return widths;
}

}  // namespace desk
