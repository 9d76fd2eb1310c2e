#pragma once

#include "desktop/window_actor.h"

namespace desk::desktop {

/// A person of whom a script says what the hands do at the windows, and who tells what is to be seen there.
/// Beside the words of ScriptedHand:
///
///     form first tree               opens the form (FormByHand) with these of its controls
///     key Down Shift+Tab Ctrl+F     at whatever has the focus
///     hold Return                   until it repeats
///     tabs 5                        what Tab comes to in so many steps is told
///     keys 3.5                      letter by letter
///     input 甲\n乙                  as an input method brings it, at once
///     paste 甲\n乙
///     drop first 甲\n乙             a text from elsewhere, into the middle of that field
///     wheel day                     one notch towards the person
///     rightclick grid 2 1           as "middleclick", "ctrlclick", "shiftclick", "doubleclick", "pressoff":
///                                   at a control, a line, a cell or a node ("0.1" is the second below the
///                                   first); the last lets go elsewhere, "shakyclick" at the left edge,
///                                   "rightpress" not at all
///     hit day 6                     the mouse, before the sixth letter
///     rest grid 2 1                 the pointer, until a tip comes
///     menu grid 2 1                 what a right click offers there; "choose 复制此行" takes one of it
///     drag grid 1 -100              the edge of a column, in pixels
///     scroll grid 100               or to "top" and "end"
///     size 1000 640                 of the window
///     leave                         for another window, and come back
///     again                         the window is made anew
///     set first locked              what the screen does itself, in the words of FormByHand; to "all" its
///                                   controls
class HandActor : public WindowActor {
  public:
    Portrait look(Screen& screen) override;
    bool act(ScriptedHand& hand, const std::string& verb, const std::string& rest) override;

  protected:
    QWidget* layOut(Screen& screen) override;

  private:
    bool atTheWindow(const std::string& verb, const std::string& rest);
    bool atTheKeys(const std::string& verb, const std::string& rest);
    bool withTheMouse(Control& control, const std::string& verb, const std::string& at);
    bool atTheView(Control& control, const std::string& verb, const std::string& at);

    Screen* front_ = nullptr;  ///< set for the time of an act
    std::vector<std::string> parts_;
};

}  // namespace desk::desktop
