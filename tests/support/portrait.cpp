#include "support/portrait.h"

#include <fmt/format.h>

#include <map>

#include "base/text.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/marker.h"
#include "ui/menu.h"
#include "ui/tree.h"

namespace desk {

namespace {

std::string shownColour(Colour colour) {
    return colour == windowColour
               ? "white"
               : fmt::format("#{:02x}{:02x}{:02x}", redOf(colour), greenOf(colour), blueOf(colour));
}

std::string quoted(std::string_view text) {
    std::string shown = "\"";
    for (const char c : text) shown += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
    return shown + "\"";
}

/// Writes the lines of one screen.
class Painter {
  public:
    Portrait take() { return std::move(lines_); }

    void screen(const Screen& screen) {
        add("title", quoted(screen.caption()));
        if (!screen.tag.empty()) add("tag", quoted(screen.tag));
        if (screen.left() != 0 || screen.top() != 0)
            add("place", fmt::format("{}, {}", screen.left(), screen.top()));
        for (const Control* control : screen.controls()) this->control(*control);
    }

  private:
    /// Names that repeat, as those of the lines in a menu, are counted.
    void add(const std::string& key, std::string value) {
        const int seen = ++seen_[key];
        lines_.emplace_back(seen == 1 ? key : fmt::format("{}#{}", key, seen), std::move(value));
    }

    void control(const Control& control) {
        std::string shown = look(control);
        if (!control.enabled()) shown += " disabled";
        if (!control.visible()) shown += " hidden";
        if (control.anchor() != nullptr) shown += " at " + control.anchor()->name();
        if (const auto& cell = control.anchorCell()) shown += fmt::format(" {} {}", cell->row, cell->column);
        if (!control.tag.empty()) shown += " tag=" + control.tag;
        add(control.name(), shown);
        if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) items(control.name(), *combo);
        if (const auto* list = dynamic_cast<const ListBox*>(&control)) items(control.name(), *list);
        if (const auto* tree = dynamic_cast<const Tree*>(&control))
            nodes(*tree, control.name(), tree->roots());
        if (const auto* grid = dynamic_cast<const Grid*>(&control)) rows(*grid);
    }

    /// What the control is and holds, in one line.
    static std::string look(const Control& control) {
        if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
            const char* kind[] = {"text ", "paragraph ", "password "};
            return kind[static_cast<int>(box->style())] + quoted(box->text()) +
                   (box->locked() ? " locked" : "");
        }
        if (const auto* label = dynamic_cast<const Label*>(&control))
            return "label " + quoted(label->caption());
        if (const auto* button = dynamic_cast<const Button*>(&control))
            return "button " + quoted(button->caption());
        if (const auto* box = dynamic_cast<const CheckBox*>(&control))
            return (box->checked() ? "[x] " : "[ ] ") + quoted(box->caption());
        if (const auto* option = dynamic_cast<const OptionButton*>(&control))
            return (option->chosen() ? "(x) " : "( ) ") + quoted(option->caption());
        if (const auto* picker = dynamic_cast<const DatePicker*>(&control))
            return "day " + isoDay(picker->value());
        if (const auto* month = dynamic_cast<const MonthCalendar*>(&control))
            return "month " + isoDay(month->value());
        if (const auto* swatch = dynamic_cast<const Swatch*>(&control))
            return "colour " + shownColour(swatch->colour());
        if (const auto* marker = dynamic_cast<const Marker*>(&control))
            return fmt::format("marker {} {} at {}, {}", quoted(marker->text()),
                               shownColour(marker->colour()), marker->area().left, marker->area().top);
        if (const auto* frame = dynamic_cast<const Frame*>(&control))
            return "frame " + quoted(frame->caption());
        if (const auto* combo = dynamic_cast<const ComboBox*>(&control))
            return "combo " + (combo->hasSelection() ? quoted(combo->text()) : "-");
        if (const auto* list = dynamic_cast<const ListBox*>(&control))
            return "list " + quoted(join(list->selectedTexts(), ","));
        if (const auto* strip = dynamic_cast<const TabStrip*>(&control))
            return fmt::format("tabs {} at {}", quoted(join(strip->titles(), "|")), strip->index());
        if (const auto* bar = dynamic_cast<const StatusBar*>(&control)) return "status " + panels(*bar);
        if (const auto* tree = dynamic_cast<const Tree*>(&control))
            return std::string("tree") +
                   (tree->selected() != nullptr ? " on " + quoted(tree->selected()->text()) : "");
        if (const auto* grid = dynamic_cast<const Grid*>(&control))
            return fmt::format("grid at row {}", grid->row());
        if (const auto* entry = dynamic_cast<const MenuEntry*>(&control))
            return entry->parent() != nullptr ? "entry of " + entry->parent()->caption() : "menu";
        return "area";
    }

    static std::string panels(const StatusBar& bar) {
        std::vector<std::string> texts;
        for (int i = 0; i < bar.panelCount(); ++i) texts.push_back(bar.panel(i));
        return quoted(join(texts, "|"));
    }

    static std::string columns(const Grid& grid) {
        const std::map<Align, const char*> signs = {
            {Align::left, "<"}, {Align::centre, "^"}, {Align::right, ">"}, {Align::general, ""}};
        std::vector<std::string> columns;
        for (int c = 0; c < grid.columns(); ++c)
            columns.push_back(std::to_string(grid.columnWidth(c)) + signs.at(grid.alignment(c)));
        return join(columns, " ");
    }

    void items(const std::string& name, const ItemHolder& holder) {
        std::vector<std::string> texts;
        for (const Item& item : holder.items())
            texts.push_back(item.text + (item.colour ? " " + shownColour(*item.colour) : ""));
        add(name + ".items", quoted(join(texts, "|")));
    }

    void nodes(const Tree& tree, const std::string& place, const TreeNodes& siblings) {
        for (const TreeNode* node : siblings) {
            const std::string here = fmt::format("{}.{}", place, node->row());
            const char* tick = tree.style() == Tree::Style::plain ? "" : node->checked() ? "[x] " : "[ ] ";
            add(here, tick + quoted(node->text()) + (node->expanded() ? " open" : ""));
            nodes(tree, here, node->children());
        }
    }

    void rows(const Grid& grid) {
        add(grid.name() + ".widths", columns(grid));
        for (int r = 0; r < grid.rows(); ++r) {
            std::string cells;
            for (int c = 0; c < grid.columns(); ++c) {
                cells += (c == 0 ? "" : "|") + grid.text(r, c);
                if (const auto colour = grid.cellColour(r, c)) cells += "(" + shownColour(*colour) + ")";
                if (grid.cellBold(r, c)) cells += "(bold)";
                cells += grid.cellPicture(r, c);
            }
            add(fmt::format("{}.{}", grid.name(), r), quoted(cells));
        }
    }

    Portrait lines_;
    std::map<std::string, int> seen_;
};

}  // namespace

Portrait portraitOf(const Screen& screen) {
    Painter painter;
    painter.screen(screen);
    return painter.take();
}

std::vector<std::string> changes(const Portrait& before, const Portrait& now) {
    const std::map<std::string, std::string> old(before.begin(), before.end());
    const std::map<std::string, std::string> present(now.begin(), now.end());
    std::vector<std::string> lines;
    for (const auto& [name, value] : now)
        if (const auto found = old.find(name); found == old.end() || found->second != value)
            lines.push_back(name + ": " + value);
    for (const auto& [name, value] : before)
        if (!present.contains(name)) lines.push_back(name + ": gone");
    return lines;
}

}  // namespace desk
