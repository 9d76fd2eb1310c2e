#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/form.h"
#include "ui/panel.h"

namespace desk::desktop {

/// The form as a screen of a program, for scripts: it tells what its controls are told, and does by the words
/// of a script what a screen does.
class FormByHand : public Form {
  public:
    explicit FormByHand(std::function<void(const std::string&)> tell);

    /// The content of a window that shows these controls.
    QWidget* layOut(const std::vector<std::string>& names);

    /// What a screen does to one of its controls, as "first text 甲", "list lines a|b", "grid row 1|甲",
    /// "tree node 来人/Alpha", "several marks 2" or "second hidden". Fails for what it can not do.
    void act(Control& control, const std::string& what, const std::string& value);

  private:
    template <class... Args>
    void tells(Signal<Args...>& signal, const Control& control, const char* what);

    std::function<void(const std::string&)> tell_;
    Panel panel{*this, "panel", "选择"};
    TextBox above{panel, "above"};
    Button close{panel, "close", "关闭"};
    Button arrow{*this, "arrow", "▼"};
};

}  // namespace desk::desktop
