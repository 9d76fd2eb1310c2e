#include "platform/x11/spare_keys.h"

#include <algorithm>

#include "platform/x11/key_map.h"

namespace desk::x11 {

namespace {

/// Both are false where the key is so already.
bool lendKey(XkbDescPtr map, KeyCode code, KeySym symbol) {
    if (XkbKeyNumSyms(map, code) == 1 && *XkbKeySymsPtr(map, code) == symbol) return false;
    int oneLevel = XkbOneLevelIndex;
    if (XkbChangeTypesOfKey(map, code, 1, XkbGroup1Mask, &oneLevel, nullptr) != Success) return false;
    *XkbKeySymsPtr(map, code) = symbol;
    return true;
}

bool takeKeyBack(XkbDescPtr map, KeyCode code) {
    auto& key = map->map->key_sym_map[code];
    if (key.group_info == 0 && key.width == 0) return false;
    key.group_info = 0;
    key.width = 0;
    return true;
}

}  // namespace

SpareKeys::SpareKeys(Display* display, const Keyboards& keyboards)
    : display_(display), keyboards_(keyboards.all()) {
    std::vector<MapOfKeys> maps;
    for (const int keyboard : keyboards_) maps.push_back(readMap(display_, keyboard));
    for (int code = maps.back()->min_key_code; code <= maps.back()->max_key_code; ++code)
        if (std::all_of(maps.begin(), maps.end(), [&](const auto& map) { return isSpare(*map, code); }))
            codes_.push_back(static_cast<KeyCode>(code));
}

/// Each keyboard gets its own other keys back with them, in one request: programs read the whole map anew at
/// each.
template <class Change>
void SpareKeys::changeEach(Change change) {
    for (const int keyboard : keyboards_) {
        const MapOfKeys map(XkbGetMap(display_, XkbAllMapComponentsMask, static_cast<unsigned>(keyboard)));
        if (!map) continue;
        bool changes = false;
        for (std::size_t i = 0; i < used_; ++i) changes = change(map.get(), i) || changes;
        // The master has the map already if it has that of a keyboard which was changed before.
        if (!changes) continue;
        XkbMapChangesRec range{};
        range.changed = XkbKeySymsMask;
        range.first_key_sym = codes_.front();
        range.num_key_syms = static_cast<unsigned char>(codes_[used_ - 1] - codes_.front() + 1);
        XkbChangeMap(display_, map.get(), &range);
    }
    XSync(display_, False);
}

void SpareKeys::lend(const std::vector<KeySym>& symbols) {
    used_ = std::max(used_, symbols.size());
    changeEach([&](XkbDescPtr map, std::size_t i) {
        return i < symbols.size() && lendKey(map, codes_[i], symbols[i]);
    });
}

void SpareKeys::takeBack() {
    if (used_ == 0) return;
    changeEach([this](XkbDescPtr map, std::size_t i) { return takeKeyBack(map, codes_[i]); });
}

}  // namespace desk::x11
