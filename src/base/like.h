#pragma once

#include <string_view>
#include <utility>
#include <vector>

namespace desk {

/// What a text may look like: "*" stands for any signs or none, "?" for one sign, "#" for a digit, "[abc]"
/// for one of these signs, "[a-z]" for one from the one to the other, "[!abc]" for one that is none of them.
/// Case counts. "[]" stands for nothing. A bracket that is not closed, as while it is being typed, is a sign
/// like others.
class LikePattern {
  public:
    explicit LikePattern(std::string_view pattern);

    /// Whether the whole text looks so.
    bool fits(std::string_view text) const;

  private:
    struct Piece {
        bool anyRun = false;   ///< "*"
        bool excepts = false;  ///< all signs but those of `ranges`
        std::vector<std::pair<char32_t, char32_t>> ranges{};
        bool takes(char32_t sign) const;
    };

    /// The piece for what stands between brackets.
    static Piece listed(std::u32string_view list);

    std::vector<Piece> pieces_;
};

}  // namespace desk
