#pragma once

#include <map>
#include <memory>

#include "desktop/person.h"
#include "support/actor.h"

namespace desk::desktop {

/// Acts as a person does before the windows: mouse, keys, and an input method for Chinese. Each screen that
/// is shown gets a window with its layout.
class WindowActor : public Actor {
  public:
    void shown(Screen& screen) override;
    void closed(const std::string& screen) override;

    void focus(Control& control) override;
    void type(TextBox& box, const std::string& text) override;
    void press(Button& button) override { focus(button); }
    void click(Label& label) override { focus(label); }
    void tick(CheckBox& box) override { clickBox(box); }
    void tick(OptionButton& option) override { clickBox(option); }
    void pick(ComboBox& combo, const std::string& text) override;
    void pick(DatePicker& picker, const DateTime& day) override;
    void click(ListBox& list, int line) override { clickLine(list, line, clickAt); }
    void doubleClick(ListBox& list, int line) override { clickLine(list, line, Person::doubleClick); }
    void click(Tree& tree, TreeNode& node) override;
    void tick(Tree& tree, TreeNode& node) override;
    void click(Grid& grid, int row, int column) override { clickCell(grid, row, column, clickAt); }
    void doubleClick(Grid& grid, int row, int column) override {
        clickCell(grid, row, column, Person::doubleClick);
    }
    void choose(TabStrip& strip, int index) override;
    void clickDay(MonthCalendar& calendar, const DateTime& day) override;

  protected:
    /// The content of the screen's window, null for a screen that is shown in none here.
    virtual QWidget* layOut(Screen& screen);
    /// The person before the window of that screen, null without one.
    Person* personAt(const Screen& screen) const;
    /// The control's widget where a person can reach it now, null otherwise.
    QWidget* reached(const Control& control);
    template <class Widget>
    Widget* reached(const Control& control) {
        return dynamic_cast<Widget*>(reached(control));
    }

  private:
    static void clickAt(QWidget& widget, QPoint at) { Person::click(widget, at); }
    /// Of what is ticked.
    void clickBox(Control& control);
    void clickLine(ListBox& list, int line, void (*hit)(QWidget&, QPoint));
    void clickCell(Grid& grid, int row, int column, void (*hit)(QWidget&, QPoint));

    std::map<std::string, std::unique_ptr<Person>> windows_;
    std::vector<std::unique_ptr<Person>> closed_;  ///< a button in them may still be in its handler
};

}  // namespace desk::desktop
