#include "support/scripted_hand.h"

#include <algorithm>
#include <optional>

#include "base/failure.h"
#include "base/text.h"
#include "session/main_window.h"
#include "ui/marker.h"
#include "ui/menu.h"

namespace desk {

namespace {

TreeNode* findNode(const TreeNodes& nodes, const std::string& text) {
    for (TreeNode* node : nodes) {
        if (node->text() == text) return node;
        if (TreeNode* below = findNode(node->children(), text)) return below;
    }
    return nullptr;
}

/// The text of an entry: as it is said, or of that number from 1 on behind "#".
std::string entry(const ItemHolder& holder, const std::string& said) {
    return said.starts_with('#') ? holder.items().at(std::stoul(said.substr(1)) - 1).text : said;
}

[[noreturn]] void thereIsNo(const std::string& what) {
    throw RuntimeFailure(failure::unspecified, "no " + what);
}

}  // namespace

std::pair<std::string, std::string> firstWord(const std::string& line) {
    return {std::string(codeBeforeBlank(line)), std::string(nameAfterBlank(line))};
}

std::string unquoted(std::string text) {
    if (text.size() > 1 && text.starts_with('"') && text.ends_with('"'))
        text = text.substr(1, text.size() - 2);
    for (std::size_t at = 0; (at = text.find("\\n", at)) != std::string::npos; at += 2)
        text.replace(at, 2, "\r\n");
    return text;
}

ScriptedHand::ScriptedHand(TestProgram& program, std::unique_ptr<Actor> actor)
    : program_(program), actor_(actor ? std::move(actor) : std::make_unique<ControlActor>()) {}

void ScriptedHand::act(const std::string& line) {
    const auto [verb, rest] = firstWord(line);
    if (atTheProgram(verb, rest) || actor_->act(*this, verb, rest)) return;
    const auto [name, argument] = firstWord(rest);
    atTheControl(control(name), verb, unquoted(argument));
}

void ScriptedHand::shown(const std::string& screen) {
    shown_.push_back(screen);
    actor_->shown(*program_.app.screens.loaded(screen));
}

bool ScriptedHand::atTheProgram(const std::string& verb, const std::string& rest) {
    auto& desktop = program_.desktop;
    if (verb == "open") {
        program_.app.screens.open(rest);
    } else if (verb == "close") {
        Screen& screen = current();
        screen.closeAsked();
        program_.app.screens.unload(screen);
    } else if (verb == "answer") {
        desktop.answers.push_back(rest == "yes" ? Answer::yes : Answer::no);
    } else if (verb == "colour") {
        desktop.colours.push_back(rest == "cancel" ? std::nullopt : std::optional(std::stoi(rest)));
    } else if (verb == "file") {
        desktop.files.push_back(rest == "cancel" ? std::nullopt : std::optional(rest));
    } else if (verb == "within") {
        scope_ = rest.empty() ? "" : rest + ".";
    } else {
        return false;
    }
    return true;
}

void ScriptedHand::atTheControl(Control& control, const std::string& verb, const std::string& rest) {
    const auto as = [&]<class C>(C*& found) { return (found = dynamic_cast<C*>(&control)) != nullptr; };
    TextBox* box;
    Button* button;
    Label* label;
    CheckBox* check;
    OptionButton* option;
    ComboBox* combo;
    DatePicker* picker;
    ListBox* list;
    Tree* tree;
    Grid* grid;
    TabStrip* strip;
    MonthCalendar* calendar;
    MenuEntry* menu;
    Marker* marker;
    if (verb == "focus") return actor_->focus(control);
    if (as(box)) return actor_->type(*box, rest);
    if (as(button)) return actor_->press(*button);
    if (as(label)) return actor_->click(*label);
    if (as(check)) return actor_->tick(*check);
    if (as(option)) return actor_->tick(*option);
    if (as(combo)) return actor_->pick(*combo, entry(*combo, rest));
    if (as(picker)) return actor_->pick(*picker, parseDate(rest).value());
    if (as(list)) {
        const int line = list->find(entry(*list, rest));
        return verb == "doubleclick" ? actor_->doubleClick(*list, line) : actor_->click(*list, line);
    }
    if (as(strip)) {
        const auto& titles = strip->titles();
        const auto found = std::find(titles.begin(), titles.end(), rest);
        return actor_->choose(*strip, static_cast<int>(found - titles.begin()));
    }
    if (as(calendar)) return actor_->clickDay(*calendar, parseDate(rest).value());
    if (as(menu)) return menu->click();
    if (as(marker)) return marker->click(verb == "rightclick" ? MouseButton::other : MouseButton::left);
    if (as(tree)) return atATree(*tree, verb, rest);
    if (as(grid)) return atAGrid(*grid, verb, rest);
    thereIsNo("way to " + verb + " that");
}

void ScriptedHand::atATree(Tree& tree, const std::string& verb, const std::string& rest) {
    TreeNode* node = findNode(tree.roots(), rest);
    if (node == nullptr) thereIsNo("node " + rest);
    if (verb == "tick")
        actor_->tick(tree, *node);
    else
        actor_->click(tree, *node);
}

void ScriptedHand::atAGrid(Grid& grid, const std::string& verb, const std::string& rest) {
    const auto [row, column] = firstWord(rest);
    const int number = column.empty() ? 1 : std::stoi(column);
    if (verb == "widen") return grid.resize(std::stoi(row), 3000);
    if (verb == "scroll") return grid.scrollTo(std::stoi(row));
    if (verb == "doubleclick")
        actor_->doubleClick(grid, std::stoi(row), number);
    else
        actor_->click(grid, std::stoi(row), number);
}

Screen& ScriptedHand::current() const {
    for (auto name = shown_.rbegin(); name != shown_.rend(); ++name)
        if (Screen* screen = program_.app.screens.loaded(*name)) return *screen;
    thereIsNo("screen is open");
}

std::vector<std::string> ScriptedHand::screens() const {
    std::vector<std::string> names;
    for (const auto& name : shown_)
        if (program_.app.screens.loaded(name) != nullptr &&
            std::find(names.begin(), names.end(), name) == names.end())
            names.push_back(name);
    return names;
}

Control& ScriptedHand::control(const std::string& name) const {
    Screen& screen = current();
    if (Control* found = screen.control(scope_ + name)) return *found;
    if (Control* found = screen.control(name)) return *found;
    // The menu is in reach whatever screen is in front.
    if (const Screen* main = program_.app.screens.loaded(MDIForm1::screenName))
        if (Control* found = main->control(name)) return *found;
    thereIsNo("control " + name);
}

}  // namespace desk
