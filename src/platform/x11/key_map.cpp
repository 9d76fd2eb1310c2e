#include "platform/x11/key_map.h"

#include <algorithm>
#include <bit>
#include <tuple>

#include "base/failure.h"

namespace desk::x11 {

namespace {

constexpr int modifierCount = 8;

/// Keys in the middle of the board are understood by more programs than the special ones beyond it, which
/// have some of their signs too.
bool isBetter(const Stroke& one, const Stroke& other) {
    constexpr int lastInTheMiddle = 96;
    const auto rank = [](const Stroke& stroke) {
        return std::make_tuple(stroke.code > lastInTheMiddle, std::popcount(stroke.modifiers), stroke.code);
    };
    return rank(one) < rank(other);
}

}  // namespace

MapOfKeys readMap(Display* display, int keyboard) {
    MapOfKeys map(XkbGetMap(display, XkbAllMapComponentsMask, static_cast<unsigned>(keyboard)));
    if (!map) throw RuntimeFailure(failure::permissionDenied, "X 服务器不支持键盘布局扩展，程序不能代替键盘");
    return map;
}

bool isSpare(const XkbDescRec& map, int code) {
    if (code < map.min_key_code || code > map.max_key_code || map.map->modmap[code] != 0) return false;
    const KeySym* symbols = XkbKeySymsPtr(&map, code);
    return std::all_of(symbols, symbols + XkbKeyNumSyms(&map, code),
                       [](KeySym symbol) { return symbol == NoSymbol; });
}

KeyMap::KeyMap(Display* display, int keyboard, int layout)
    : map_(readMap(display, keyboard)), layout_(layout), holding_(modifierCount, 0) {
    for (int code = map_->min_key_code; code <= map_->max_key_code; ++code)
        if (const unsigned modifier = modifierOf(code); std::has_single_bit(modifier)) {
            KeyCode& key = holding_[static_cast<std::size_t>(std::countr_zero(modifier))];
            if (key == 0) key = static_cast<KeyCode>(code);
        }
    for (int code = map_->min_key_code; code <= map_->max_key_code; ++code) note(code);
}

std::optional<Stroke> KeyMap::find(KeySym symbol) const {
    const auto found = strokes_.find(symbol);
    if (found == strokes_.end()) return std::nullopt;
    return found->second;
}

std::optional<KeyCode> KeyMap::holding(unsigned modifier) const {
    const KeyCode key = holding_.at(static_cast<std::size_t>(std::countr_zero(modifier)));
    if (key == 0) return std::nullopt;
    return key;
}

bool KeyMap::isModifier(KeyCode code) const {
    return modifierOf(code) != 0;
}

/// A key with fewer layouts than the keyboard says itself which one stands in for the others.
int KeyMap::layoutOf(int code) const {
    const int count = XkbKeyNumGroups(map_, code);
    if (layout_ < count) return layout_;
    const unsigned info = XkbKeyGroupInfo(map_, code);
    switch (XkbOutOfRangeGroupAction(info)) {
        case XkbClampIntoRange:
            return count - 1;
        case XkbRedirectIntoRange: {
            const int instead = XkbOutOfRangeGroupNumber(info);
            return instead < count ? instead : 0;
        }
        default:
            return layout_ % count;
    }
}

unsigned KeyMap::modifierOf(int code) const {
    if (XkbKeyNumGroups(map_, code) == 0 || XkbKeyHasActions(map_, code) == 0) return 0;
    const XkbAction* action = XkbKeyActionEntry(map_, code, 0, layoutOf(code));
    return action->type == XkbSA_SetMods ? action->mods.mask : 0;
}

std::optional<unsigned> KeyMap::forLevel(const XkbKeyTypeRec& type, int level) const {
    if (level == 0) return 0U;
    std::optional<unsigned> best;
    for (int i = 0; i < type.map_count; ++i) {
        const XkbKTMapEntryRec& entry = type.map[i];
        const unsigned modifiers = entry.mods.mask;
        if (entry.active == 0 || entry.level != level) continue;
        bool canBeHeld = true;
        for (unsigned bit = 1; bit < 1U << modifierCount; bit <<= 1U)
            if ((modifiers & bit) != 0 && !holding(bit)) canBeHeld = false;
        if (canBeHeld && (!best || std::popcount(modifiers) < std::popcount(*best))) best = modifiers;
    }
    return best;
}

void KeyMap::note(int code) {
    if (XkbKeyNumGroups(map_, code) == 0) return;
    const int layout = layoutOf(code);
    const XkbKeyTypeRec& type = *XkbKeyKeyType(map_, code, layout);
    for (int level = 0; level < type.num_levels; ++level) {
        const KeySym symbol = XkbKeySymEntry(map_, code, level, layout);
        const auto modifiers = forLevel(type, level);
        if (symbol == NoSymbol || !modifiers) continue;
        const Stroke stroke{static_cast<KeyCode>(code), *modifiers};
        const auto [known, isNew] = strokes_.try_emplace(symbol, stroke);
        if (!isNew && isBetter(stroke, known->second)) known->second = stroke;
    }
}

}  // namespace desk::x11
