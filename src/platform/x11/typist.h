#pragma once

#include <vector>

#include "platform/key_string.h"
#include "platform/x11/held_modifiers.h"
#include "platform/x11/key_map.h"
#include "platform/x11/keyboards.h"
#include "platform/x11/server.h"
#include "platform/x11/spare_keys.h"
#include "platform/x11/target_window.h"

namespace desk::x11 {

/// Types into the window that has the keyboard when this is made, on whatever keys that takes. All failures
/// are 70, with a text that says why; keys, modifiers and maps are then as they were.
class Typist {
  public:
    explicit Typist(Server& server);
    ~Typist();
    Typist(const Typist&) = delete;
    Typist& operator=(const Typist&) = delete;

    void type(const std::vector<typing::Action>& actions);

  private:
    /// One action on the keys of this keyboard.
    struct Step {
        enum class Kind { hold, letGo, press } kind;
        unsigned modifier = 0;     ///< of hold and letGo
        KeySym symbol = NoSymbol;  ///< of press
        Stroke stroke;             ///< code 0: on no key of its own
        int times = 1;
        bool isCommand = false;  ///< may change more than a text
    };
    using Steps = std::vector<Step>;

    Steps stepsOf(const std::vector<typing::Action>& actions);
    Step pressOf(KeySym symbol, int times, bool isCommand) const;
    void lendSpareKeys(Steps::iterator from, Steps::iterator to, const std::vector<KeySym>& symbols);
    void perform(const Step& step);
    void press(const Stroke& stroke);
    void requireTarget();
    void catchUp();
    void key(KeyCode code, bool down, unsigned long delay = 0);

    Server& server_;
    Keyboards keyboards_;
    KeyMap map_;
    TargetWindow target_;
    ModifiersOff off_;
    SpareKeys spare_;
    unsigned held_ = 0;  ///< modifiers
    KeyCode last_ = 0;   ///< pressed
    bool afterCommand_ = false;
};

}  // namespace desk::x11
