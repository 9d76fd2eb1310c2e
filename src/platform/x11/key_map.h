#pragma once

#include <X11/XKBlib.h>
#include <X11/Xlib.h>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace desk::x11 {

struct FreedMap {
    void operator()(XkbDescPtr map) const { XkbFreeKeyboard(map, 0, True); }
};
/// What the keys of one keyboard mean.
using MapOfKeys = std::unique_ptr<XkbDescRec, FreedMap>;

/// As the server has it now. Fails with 70 when it gives none.
MapOfKeys readMap(Display* display, int keyboard);

/// Whether no layout of the map makes anything of the key.
bool isSpare(const XkbDescRec& map, int code);

/// A key, with the modifiers that have to be held for one of its symbols.
struct Stroke {
    KeyCode code = 0;
    unsigned modifiers = 0;  ///< the server's eight bits
};

/// How symbols are typed on one keyboard in one of its layouts.
class KeyMap {
  public:
    KeyMap(Display* display, int keyboard, int layout);

    /// nullopt for a symbol that is on no key, or only where a lock would have to be on.
    std::optional<Stroke> find(KeySym symbol) const;
    /// The key that holds the modifier while it is down; nullopt without one.
    std::optional<KeyCode> holding(unsigned modifier) const;
    /// Whether the key holds a modifier while it is down.
    bool isModifier(KeyCode code) const;

  private:
    int layoutOf(int code) const;
    unsigned modifierOf(int code) const;
    void note(int code);
    /// What has to be held for that level of the type; nullopt where nothing that can be held does it.
    std::optional<unsigned> forLevel(const XkbKeyTypeRec& type, int level) const;

    MapOfKeys map_;
    int layout_;
    std::vector<KeyCode> holding_;  ///< by bit, 0 for none
    std::unordered_map<KeySym, Stroke> strokes_;
};

}  // namespace desk::x11
