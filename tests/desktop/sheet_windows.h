#pragma once

#include <QLayout>

#include "desktop/binding.h"
#include "desktop/in_windows.h"
#include "desktop/layout.h"
#include "ui/fields.h"

namespace desk::desktop {

/// A child with two fields. What it does in its load is told from outside.
struct Sheet : Screen {
    Sheet(std::string name, std::function<void(Sheet&)>& step)
        : Screen(std::move(name), "表", WindowKind::child, 4500, 3000), step_(step) {}
    void load() override { step_(*this); }
    void activate() override {
        if (tag == "large") maximise();
    }

    TextBox first{*this, "first"};
    TextBox second{*this, "second"};
    Button press{*this, "press", "按"};
    Timer timer{*this, "timer", 1};

  private:
    std::function<void(Sheet&)>& step_;
};

/// Two such screens beside those of the program.
class SheetWindows : public InWindows {
  protected:
    SheetWindows() : InWindows(layoutOfSheet) {
        for (const char* name : {"sheet", "other"})
            app->screens.offer(name, [this, name] { return std::make_unique<Sheet>(name, step); });
    }

    static QWidget* layoutOfSheet(Screen& screen) {
        auto* sheet = dynamic_cast<Sheet*>(&screen);
        if (sheet == nullptr) return layoutOf(screen);
        auto* content = layout::rows(
            {layout::plain(sheet->first), layout::plain(sheet->second), layout::plain(sheet->press)});
        layout::orderTabs(content);
        return content;
    }
    Sheet& open(const char* name) {
        bring(name);
        return *static_cast<Sheet*>(app->screens.loaded(name));
    }
    QWidget* at(const Control& control) { return widget(child(control.screen().name().c_str()), control); }
    /// Makes the widget of a control that came later, and puts it below the fields of the sheet.
    template <class Widget = QWidget>
    Widget* added(Control& control) {
        auto* made = dynamic_cast<Widget*>(widgetFor(control));
        child("sheet")->findChild<QWidget*>("first")->parentWidget()->layout()->addWidget(made);
        made->show();
        return made;
    }

    std::function<void(Sheet&)> step = [](Sheet&) {};
};

}  // namespace desk::desktop
