#pragma once

#include <X11/Xlib.h>

#include <vector>

#include "platform/x11/key_map.h"
#include "platform/x11/keyboards.h"

namespace desk::x11 {

/// Takes off the modifiers and locks that a person has on while the program types, and puts back at its end
/// what is still held then. A lock that was switched in between stays switched.
class ModifiersOff {
  public:
    ModifiersOff(Display* display, const Keyboards& keyboards, const KeyMap& map);
    ~ModifiersOff();
    ModifiersOff(const ModifiersOff&) = delete;
    ModifiersOff& operator=(const ModifiersOff&) = delete;

    /// Takes off what a person has pressed since, where other modifiers are held than these.
    void keepOff(unsigned butFor);

  private:
    std::vector<KeyCode> modifiersDown(int keyboard) const;
    void takeFromPrograms();
    void takeFromPersons();

    Display* display_;
    const Keyboards& keyboards_;
    const KeyMap& map_;
    std::vector<KeyCode> held_;  ///< by another program
    unsigned locked_ = 0;
    unsigned latched_ = 0;
};

}  // namespace desk::x11
