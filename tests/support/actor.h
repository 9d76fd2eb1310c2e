#pragma once

#include <string>

#include "support/portrait.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/tree.h"

namespace desk {

class ScriptedHand;

/// Who acts on a screen: through its controls, or through what shows them. A person moves the focus to what
/// is acted on, as people do.
class Actor {
  public:
    virtual ~Actor() = default;

    /// A screen has come before the person, or has gone.
    virtual void shown(Screen&) {}
    virtual void closed(const std::string& /*screen*/) {}

    /// The screen asks for the focus there; windows have moved it by then.
    virtual void led(Control&) {}

    /// What there is to be seen of a screen.
    virtual Portrait look(Screen& screen) { return portraitOf(screen); }
    /// Does what this one alone can do, in words of its own; false where the verb is none of them.
    virtual bool act(ScriptedHand& /*hand*/, const std::string& /*verb*/, const std::string& /*rest*/) {
        return false;
    }

    virtual void focus(Control& control) = 0;
    virtual void type(TextBox& box, const std::string& text) = 0;
    virtual void press(Button& button) = 0;
    virtual void click(Label& label) = 0;
    virtual void tick(CheckBox& box) = 0;
    virtual void tick(OptionButton& option) = 0;
    virtual void pick(ComboBox& combo, const std::string& text) = 0;
    virtual void pick(DatePicker& picker, const DateTime& day) = 0;
    virtual void click(ListBox& list, int line) = 0;
    virtual void doubleClick(ListBox& list, int line) = 0;
    virtual void click(Tree& tree, TreeNode& node) = 0;
    virtual void tick(Tree& tree, TreeNode& node) = 0;
    virtual void click(Grid& grid, int row, int column) = 0;
    virtual void doubleClick(Grid& grid, int row, int column) = 0;
    virtual void choose(TabStrip& strip, int index) = 0;
    virtual void clickDay(MonthCalendar& calendar, const DateTime& day) = 0;
};

/// Acts through the controls themselves.
class ControlActor : public Actor {
  public:
    void led(Control& control) override { focus(control); }
    void focus(Control& control) override;
    void type(TextBox& box, const std::string& text) override;
    void press(Button& button) override;
    void click(Label& label) override;
    void tick(CheckBox& box) override;
    void tick(OptionButton& option) override;
    void pick(ComboBox& combo, const std::string& text) override;
    void pick(DatePicker& picker, const DateTime& day) override;
    void click(ListBox& list, int line) override;
    void doubleClick(ListBox& list, int line) override;
    void click(Tree& tree, TreeNode& node) override;
    void tick(Tree& tree, TreeNode& node) override;
    void click(Grid& grid, int row, int column) override;
    void doubleClick(Grid& grid, int row, int column) override;
    void choose(TabStrip& strip, int index) override;
    void clickDay(MonthCalendar& calendar, const DateTime& day) override;

  private:
    std::string focused_;  ///< screen and control
};

}  // namespace desk
