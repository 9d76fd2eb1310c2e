#pragma once

#include <X11/Xlib.h>

#include <vector>

namespace desk::x11 {

/// The keyboards of the desktop, by the numbers that its input extension gives them.
struct Keyboards {
    /// What programs take for the keyboard: it takes the map of whichever keyboard below spoke last.
    int master;
    /// Where synthesised keys come from.
    int synthetic;
    /// The ones with keys and plugs.
    std::vector<int> physical;

    /// Of several masters the first, which is the desktop's own. Fails with 70 when the server knows no such
    /// thing.
    static Keyboards of(Display* display);

    std::vector<int> all() const;
};

/// The codes of the keys that are down on one keyboard, whatever became of them on the master.
std::vector<KeyCode> keysDown(Display* display, int keyboard);

/// Lets a key of a keyboard go and presses it again, which nobody but the server sees.
void pressAgain(Display* display, int keyboard, KeyCode key);

}  // namespace desk::x11
