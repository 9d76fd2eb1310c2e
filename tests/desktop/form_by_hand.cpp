#include "desktop/form_by_hand.h"

#include <fmt/format.h>

#include <stdexcept>

#include "base/text.h"
#include "desktop/floating.h"
#include "desktop/panel.h"
#include "desktop/screen_keys.h"
#include "desktop/tree_count.h"
#include "support/scripted_hand.h"
#include "ui/batch.h"

namespace desk::desktop {

namespace {

using Words = std::map<std::string, std::function<void()>>;

/// Whether `what` is one of these words, which is done then.
bool does(const Words& words, const std::string& what) {
    const auto found = words.find(what);
    if (found != words.end()) found->second();
    return found != words.end();
}

TreeNode* nodeOf(const TreeNodes& nodes, std::string_view text) {
    for (TreeNode* node : nodes) {
        if (node->text() == text) return node;
        if (TreeNode* below = nodeOf(node->children(), text)) return below;
    }
    return nullptr;
}

bool onItems(ItemHolder& items, const std::string& what, const std::string& value) {
    return does({{"lines",
                  [&] {
                      items.beginUpdate();
                      for (const auto& line : split(value, '|')) items.addItem(line);
                      items.endUpdate();
                  }},
                 {"empty", [&] { items.clear(); }}},
                what);
}

bool onAList(ListBox& list, const std::string& what, const std::string& value) {
    return onItems(list, what, value) ||
           does({{"marks", [&] { list.setSelected(std::stoi(value) - 1, true); }},
                 {"unmarks", [&] { list.setSelected(std::stoi(value) - 1, false); }},
                 {"marksAll", [&] { list.setAllSelected(true); }},
                 {"marksNone", [&] { list.setAllSelected(false); }},
                 {"keysMove", [&] { list.setMovingKeys(MovingKeys::move); }},
                 {"keysClick", [&] { list.setMovingKeys(MovingKeys::click); }},
                 {"hint", [&] { list.hint = value; }}},
                what);
}

bool onATree(Tree& tree, const std::string& what, const std::string& value) {
    return does({{"node",
                  [&] {
                      const auto bar = value.find('/');
                      const std::string text = unquoted(value.substr(bar == std::string::npos ? 0 : bar + 1));
                      TreeNode* parent =
                          bar == std::string::npos ? nullptr : nodeOf(tree.roots(), value.substr(0, bar));
                      tree.add(parent, text, text);
                      if (parent != nullptr) tree.setExpanded(*parent, true);
                  }},
                 {"nodes",
                  [&] {
                      tree.beginUpdate();
                      for (int i = 1; i <= std::stoi(value); ++i)
                          tree.add(nullptr, fmt::format("2026-{:04}", i),
                                   fmt::format("（引驻来人）2026-{:04} Company {}", i, i));
                      tree.endUpdate();
                  }},
                 {"on", [&] { tree.select(nodeOf(tree.roots(), value)); }},
                 {"without", [&] { tree.remove(*nodeOf(tree.roots(), value)); }},
                 {"opened", [&] { tree.setExpanded(*nodeOf(tree.roots(), value), true); }},
                 {"closed", [&] { tree.setExpanded(*nodeOf(tree.roots(), value), false); }},
                 {"ticks", [&] { tree.setChecked(*nodeOf(tree.roots(), value), true); }},
                 {"reveals", [&] { tree.reveal(*nodeOf(tree.roots(), value)); }},
                 {"keysMove", [&] { tree.setMovingKeys(MovingKeys::move); }},
                 {"empty", [&] { tree.clear(); }},
                 {"hint", [&] { tree.hint = value; }}},
                what);
}

bool onAGrid(Grid& grid, const std::string& what, const std::string& value) {
    const auto words = split(value, ' ');
    const auto number = [&](std::size_t word) { return std::stoi(words.at(word)); };
    return does({{"row", [&] { grid.addRow(split(value, '|')); }},
                 {"rows", [&] { grid.setRows(number(0)); }},
                 {"many",
                  [&] {
                      for (int row = 1; row <= number(0); ++row) grid.addRow({std::to_string(row)});
                  }},
                 {"cell", [&] { grid.setText(number(0), number(1), unquoted(words.at(2))); }},
                 {"width", [&] { grid.setColumnWidth(number(0), number(1)); }},
                 {"at", [&] { grid.setCurrent(number(0), number(1)); }},
                 {"reveals", [&] { grid.reveal(number(0)); }},
                 {"marksRows", [&] { grid.setSelection(GridSelection::row); }},
                 {"keysClick", [&] { grid.setMovingKeys(MovingKeys::click); }}},
                what);
}

bool onAText(TextBox& box, const std::string& what, const std::string& value) {
    return does({{"text", [&] { box.setText(unquoted(value)); }},
                 {"locked", [&] { box.setLocked(true); }},
                 {"selectsOnFocus", [&] { box.focused += [&box] { box.selectAll(); }; }},
                 {"free", [&] { box.setLocked(false); }},
                 {"numeric", [&] { box.setNumeric(true); }},
                 {"plain", [&] { box.setNumeric(false); }}},
                what);
}

/// "255 甲|乙": these entries in that colour, for those that it had.
void refill(ComboBox& combo, const std::string& value) {
    const auto [colour, lines] = firstWord(value);
    const Batch filling(combo);
    combo.clear();
    for (const auto& line : split(lines, '|')) combo.addItem(line, 0, std::stoi(colour));
}

bool onAField(Control& control, const std::string& what, const std::string& value) {
    if (auto* label = dynamic_cast<Label*>(&control))
        return does({{"caption", [&] { label->setCaption(value); }}}, what);
    if (auto* button = dynamic_cast<Button*>(&control))
        return does({{"caption", [&] { button->setCaption(value); }}}, what);
    if (auto* box = dynamic_cast<CheckBox*>(&control))
        return does({{"ticked", [&] { box->setChecked(true); }}, {"open", [&] { box->setChecked(false); }}},
                    what);
    if (auto* option = dynamic_cast<OptionButton*>(&control))
        return does({{"chosen", [&] { option->choose(); }}}, what);
    if (auto* picker = dynamic_cast<DatePicker*>(&control))
        return does({{"value", [&] { picker->setValue(parseDate(value).value()); }}}, what);
    if (auto* month = dynamic_cast<MonthCalendar*>(&control))
        return does({{"value", [&] { month->setValue(parseDate(value).value()); }}}, what);
    if (auto* swatch = dynamic_cast<Swatch*>(&control))
        return does({{"colour", [&] { swatch->setColour(std::stoi(value)); }}}, what);
    if (auto* canvas = dynamic_cast<Canvas*>(&control))
        return does({{"colour",
                      [&] {
                          canvas->background = std::stoi(value);
                          canvas->clear();
                          canvas->repaint();
                      }}},
                    what);
    if (auto* tabs = dynamic_cast<TabStrip*>(&control))
        return does({{"at", [&] { tabs->setIndex(std::stoi(value) - 1); }}}, what);
    if (auto* bar = dynamic_cast<StatusBar*>(&control))
        return does({{"panel", [&] { bar->setPanel(0, value); }}}, what);
    if (auto* panel = dynamic_cast<Panel*>(&control))
        return does({{"open", [&] { panel->open(); }}, {"close", [&] { panel->close(); }}}, what);
    if (auto* combo = dynamic_cast<ComboBox*>(&control))
        return onItems(*combo, what, value) || does({{"at", [&] { combo->setIndex(std::stoi(value) - 1); }},
                                                     {"coloured", [&] { refill(*combo, value); }}},
                                                    what);
    return false;
}

}  // namespace

template <class... Args>
void FormByHand::tells(Signal<Args...>& signal, const Control& control, const char* what) {
    signal += [this, &control, what](const Args&...) { tell_(fmt::format("{} {}", what, control.name())); };
}

FormByHand::FormByHand(std::function<void(const std::string&)> tell) : tell_(std::move(tell)) {
    for (Control* control : controls()) tells(control->focused, *control, "in");
    for (Button* each : {&button, &close, &arrow}) tells(each->clicked, *each, "pressed");
    for (Label* each : std::initializer_list<Label*>{&label, &link}) tells(each->clicked, *each, "clicked");
    for (OptionButton* each : {&option, &other}) tells(each->clicked, *each, "chosen");
    tells(check.clicked, check, "ticked");
    tells(day.changed, day, "changed");
    tells(combo.selected, combo, "selected");
    tells(tabs.selected, tabs, "selected");
    tells(panel.closed, panel, "closed");
    calendar.dayClicked += [this](const DateTime& at) { tell_("clicked calendar " + isoDay(at)); };
    for (ListBox* each : {&list, &several}) {
        each->clicked += [this, each](int line) {
            tell_(fmt::format("clicked {} {}", each->name(),
                              each->items().at(static_cast<std::size_t>(line)).text));
        };
        each->doubleClicked +=
            [this, each](int line) { tell_(fmt::format("double-clicked {} {}", each->name(), line + 1)); };
    }
    for (Tree* each : {&tree, &ticks}) {
        each->nodeClicked += [this, each](const TreeNode& node) {
            tell_(fmt::format("clicked {} {}", each->name(), node.text()));
        };
        each->nodeChecked += [this, each](const TreeNode& node) {
            tell_(fmt::format("ticked {} {}", each->name(), node.text()));
        };
    }
    const auto atCell = [this](const char* what) {
        return [this, what] { tell_(fmt::format("{} grid {} {}", what, grid.row(), grid.column())); };
    };
    grid.clicked += atCell("clicked");
    grid.doubleClicked += atCell("double-clicked");
}

QWidget* FormByHand::layOut(const std::vector<std::string>& names) {
    std::vector<QWidget*> parts;
    const auto wants = [&](const Control& part) {
        return std::find(names.begin(), names.end(), part.name()) != names.end();
    };
    for (const auto& name : names) {
        Control* part = control(name);
        if (part == nullptr) throw std::logic_error("no " + name + " in the form");
        if (part == &tree)
            parts.push_back(counted(tree, "客户", Entries::top));
        else if (part != &panel && part != &arrow)
            parts.push_back(widgetFor(*part));
    }
    QWidget* content = layout::rows(std::move(parts));
    layout::orderTabs(content);
    if (wants(panel)) panelOver(content, panel, layout::rows({layout::plain(above), layout::plain(close)}));
    if (wants(arrow)) floatOver(content, arrow, widgetFor(arrow), FloatsAt::rightEdge);
    addScreenKeys(content);
    return content;
}

void FormByHand::act(Control& control, const std::string& what, const std::string& value) {
    const Words common = {{"hidden", [&] { control.setVisible(false); }},
                          {"shown", [&] { control.setVisible(true); }},
                          {"grey", [&] { control.setEnabled(false); }},
                          {"usable", [&] { control.setEnabled(true); }},
                          {"focus", [&] { control.focus(); }},
                          {"below", [&] { control.setAnchor(this->control(value)); }}};
    bool done = does(common, what);
    if (auto* box = dynamic_cast<TextBox*>(&control)) done = done || onAText(*box, what, value);
    if (auto* choice = dynamic_cast<ListBox*>(&control)) done = done || onAList(*choice, what, value);
    if (auto* nodes = dynamic_cast<Tree*>(&control)) done = done || onATree(*nodes, what, value);
    if (auto* cells = dynamic_cast<Grid*>(&control)) done = done || onAGrid(*cells, what, value);
    if (!done && !onAField(control, what, value)) throw std::logic_error(control.name() + " does no " + what);
}

}  // namespace desk::desktop
