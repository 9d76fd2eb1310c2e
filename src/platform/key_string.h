#pragma once

#include <string_view>
#include <variant>
#include <vector>

namespace desk {

enum class Modifier { shift, control, alt };

/// The keys that have a name in key strings; F1 to F16 follow one another.
enum class Key {
    backspace,
    breakKey,
    capsLock,
    deleteKey,
    down,
    end,
    enter,
    escape,
    help,
    home,
    insert,
    left,
    numLock,
    pageDown,
    pageUp,
    printScreen,
    right,
    scrollLock,
    tab,
    up,
    f1,
    f16 = f1 + 15,
};

/// What a hand does for a key string, one after the other. All that is held is let go at the end.
namespace typing {

struct Hold {
    Modifier modifier;
    bool operator==(const Hold&) const = default;
};
struct LetGo {
    Modifier modifier;
    bool operator==(const LetGo&) const = default;
};
struct Press {
    Key key;
    int times = 1;
    bool operator==(const Press&) const = default;
};
struct Type {
    char32_t character;  ///< no control character
    int times = 1;
    bool operator==(const Type&) const = default;
};

using Action = std::variant<Hold, LetGo, Press, Type>;

}  // namespace typing

/// Reads a key string. A character stands for itself, "~" for Enter, as do a line end and "{ENTER}"; a tab
/// for its key. `+ ^ %` hold Shift, Ctrl, Alt for the key behind them, or for all of a group in round
/// brackets; groups may stand in groups. At the end of the text or of a group such a sign is the key alone. A
/// brace holds the name of a key in any casing, or a character that would mean something otherwise; behind a
/// blank, how often it is pressed: "{+}", "{h 10}", "{LEFT 3}". Square brackets stand for themselves. With
/// Ctrl or Alt the casing of an ASCII letter is no Shift: "^C" is Ctrl and the key C. Fails with 5, naming
/// the position but not the text, which may be secret.
std::vector<typing::Action> readKeyString(std::string_view text);

}  // namespace desk
