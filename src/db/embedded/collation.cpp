#include "db/embedded/collation.h"

#include <unicode/ucol.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <vector>

#include "base/failure.h"

namespace desk::embedded {

namespace {

void require(UErrorCode status) {
    if (U_FAILURE(status))
        throw RuntimeFailure(failure::unspecified,
                             std::string("无法使用中文排序规则：") + u_errorName(status));
}

/// Raised when the rules written here change: files keep their indexes in the order of the rules that wrote
/// them.
constexpr std::uint32_t ownRules = 2;

constexpr std::string_view wideBlank = "\u3000";

std::string_view withoutTrailingBlanks(std::string_view text) {
    while (true) {
        if (text.ends_with(' '))
            text.remove_suffix(1);
        else if (text.ends_with(wideBlank))
            text.remove_suffix(wideBlank.size());
        else
            return text;
    }
}

}  // namespace

void Collation::Close::operator()(UCollator* collator) const {
    ucol_close(collator);
}

Collation::Collation() {
    UErrorCode status = U_ZERO_ERROR;
    collator_.reset(ucol_open("zh@collation=pinyin", &status));
    require(status);
    ucol_setStrength(collator_.get(), UCOL_SECONDARY);
    constexpr std::array<std::int32_t, 2> order = {USCRIPT_LATIN, USCRIPT_HAN};
    ucol_setReorderCodes(collator_.get(), order.data(), order.size(), &status);
    require(status);
    rankAscii();
}

/// Printable ASCII characters differ in their primary weight or only in case, and none of them changes the
/// weight of another, so that two such texts are in order by their characters one after the other.
void Collation::rankAscii() {
    std::vector<char> characters;
    for (char c = ' '; c < 0x7f; ++c) characters.push_back(c);
    const auto asked = [&](char a, char b) {
        UErrorCode status = U_ZERO_ERROR;
        return ucol_strcollUTF8(collator_.get(), &a, 1, &b, 1, &status);
    };
    std::sort(characters.begin(), characters.end(), [&](char a, char b) { return asked(a, b) == UCOL_LESS; });
    std::uint8_t rank = 0;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (i == 0 || asked(characters[i - 1], characters[i]) != UCOL_EQUAL) ++rank;
        rank_[static_cast<unsigned char>(characters[i])] = rank;
    }
}

int Collation::compare(std::string_view a, std::string_view b) const {
    a = withoutTrailingBlanks(a);
    b = withoutTrailingBlanks(b);
    const auto rankAt = [&](std::string_view text, std::size_t i) {
        return rank_[static_cast<unsigned char>(text[i])];
    };
    /// Whether the character there is plain and no mark follows that could change its weight.
    const auto plain = [&](std::string_view text, std::size_t i) {
        return i >= text.size() ||
               (rankAt(text, i) != 0 && (i + 1 >= text.size() || rankAt(text, i + 1) != 0));
    };
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t i = 0;
    while (i < shorter && rankAt(a, i) != 0 && rankAt(a, i) == rankAt(b, i)) ++i;
    if (plain(a, i) && plain(b, i)) {
        if (i == a.size() || i == b.size()) return i == a.size() ? (i == b.size() ? 0 : -1) : 1;
        return rankAt(a, i) < rankAt(b, i) ? -1 : 1;
    }
    if (a == b) return 0;
    UErrorCode status = U_ZERO_ERROR;
    return ucol_strcollUTF8(collator_.get(), a.data(), static_cast<std::int32_t>(a.size()), b.data(),
                            static_cast<std::int32_t>(b.size()), &status);
}

std::int32_t Collation::version() const {
    UVersionInfo parts = {};
    ucol_getVersion(collator_.get(), parts);
    const auto library =
        static_cast<std::uint32_t>(parts[0] << 24 | parts[1] << 16 | parts[2] << 8 | parts[3]);
    // Spread over all bits, so that no version of the library makes up for other rules.
    return static_cast<std::int32_t>(library ^ (ownRules * 0x9E3779B9U));
}

}  // namespace desk::embedded
