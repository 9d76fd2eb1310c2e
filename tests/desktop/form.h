#pragma once

#include "desktop/binding.h"
#include "desktop/layout.h"
#include "ui/canvas.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/link.h"
#include "ui/screen.h"
#include "ui/tree.h"

namespace desk::desktop {

/// A screen with a control of each kind, of which a test shows those that it is about.
struct Form : Screen {
    Form() : Screen("form", "表", WindowKind::dialog, 6000, 4000) {}

    TextBox first{*this, "first"};
    TextBox second{*this, "second"};
    TextBox note{*this, "note", TextStyle::paragraph};
    TextBox password{*this, "password", TextStyle::password};
    Label label{*this, "label", "标签"};
    Link link{*this, "link", "隐藏"};
    Button button{*this, "button", "确定", ButtonRole::main};
    CheckBox check{*this, "check", "勾选"};
    OptionButton option{*this, "option", "甲"};
    OptionButton other{*this, "other", "乙", &option};
    DatePicker day{*this, "day"};
    MonthCalendar calendar{*this, "calendar"};
    Swatch swatch{*this, "swatch"};
    ComboBox combo{*this, "combo"};
    ListBox list{*this, "list"};
    ListBox several{*this, "several", ListStyle::multiple};
    TabStrip tabs{*this, "tabs", {"一", "二", "三"}};
    StatusBar status{*this, "status", 2};
    Tree tree{*this, "tree"};
    Tree ticks{*this, "ticks", Tree::Style::checkBoxes};
    Grid grid{*this, "grid", "<序|<名称    |编号"};
    Canvas canvas{*this, "canvas"};
};

/// A window with the widgets of these controls below each other.
inline QWidget* shown(std::initializer_list<Control*> controls) {
    std::vector<QWidget*> parts;
    for (Control* control : controls) parts.push_back(widgetFor(*control));
    QWidget* window = layout::rows(std::move(parts));
    layout::orderTabs(window);
    return window;
}

}  // namespace desk::desktop
