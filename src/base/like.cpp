#include "base/like.h"

#include <algorithm>

#include "base/text.h"

namespace desk {

LikePattern::LikePattern(std::string_view pattern) {
    const std::u32string signs = toUtf32(pattern);
    for (std::size_t i = 0; i < signs.size(); ++i) {
        const char32_t sign = signs[i];
        const auto close = sign == U'[' ? signs.find(U']', i) : std::u32string::npos;
        if (sign == U'*') {
            pieces_.push_back({.anyRun = true});
        } else if (sign == U'?') {
            pieces_.push_back({.excepts = true});
        } else if (sign == U'#') {
            pieces_.push_back({.ranges = {{U'0', U'9'}}});
        } else if (close != std::u32string::npos) {
            if (close > i + 1)
                pieces_.push_back(listed(std::u32string_view(signs).substr(i + 1, close - i - 1)));
            i = close;
        } else {
            pieces_.push_back({.ranges = {{sign, sign}}});
        }
    }
}

LikePattern::Piece LikePattern::listed(std::u32string_view list) {
    Piece piece;
    piece.excepts = list.size() > 1 && list.front() == U'!';
    if (piece.excepts) list.remove_prefix(1);
    for (std::size_t i = 0; i < list.size(); ++i) {
        // A hyphen at either end is a sign like others.
        const bool isRange = i + 2 < list.size() && list[i + 1] == U'-';
        piece.ranges.emplace_back(list[i], list[isRange ? i + 2 : i]);
        if (isRange) i += 2;
    }
    return piece;
}

bool LikePattern::Piece::takes(char32_t sign) const {
    const bool isListed = std::any_of(ranges.begin(), ranges.end(), [sign](const auto& range) {
        return range.first <= sign && sign <= range.second;
    });
    return isListed != excepts;
}

bool LikePattern::fits(std::string_view text) const {
    const std::u32string signs = toUtf32(text);
    std::size_t piece = 0;
    std::size_t sign = 0;
    // Where to go on when what follows the last run does not fit: with a run that is one sign longer.
    std::size_t afterRun = pieces_.size() + 1;
    std::size_t runEnd = 0;
    while (sign < signs.size()) {
        if (piece < pieces_.size() && pieces_[piece].anyRun) {
            afterRun = ++piece;
            runEnd = sign;
        } else if (piece < pieces_.size() && pieces_[piece].takes(signs[sign])) {
            ++piece;
            ++sign;
        } else if (afterRun <= pieces_.size()) {
            piece = afterRun;
            sign = ++runEnd;
        } else {
            return false;
        }
    }
    return std::all_of(pieces_.begin() + static_cast<std::ptrdiff_t>(piece), pieces_.end(),
                       [](const Piece& rest) { return rest.anyRun; });
}

}  // namespace desk
