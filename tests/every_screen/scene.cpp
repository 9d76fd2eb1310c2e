#include "every_screen/scene.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/text.h"
#include "desktop/screen_list.h"
#include "schema/catalogue.h"
#include "support/replaced.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/tree.h"

namespace desk {

namespace {

void show(std::string& all, const TreeNodes& nodes) {
    for (const TreeNode* node : nodes) {
        all += "\n" + std::string(node->text());
        show(all, node->children());
    }
}

std::string filled(const std::string& line, const std::string& text) {
    std::string dense = text;
    std::erase(dense, ' ');
    const auto code = replaced(replaced(line, "{dense}", dense), "{code}", codeBeforeBlank(text));
    return replaced(code, "{text}", text);
}

}  // namespace

Scene::Scene(const Walk& walk, std::string text) : text_(std::move(text)) {
    program.desktop.note = [this](const std::string& words) {
        if (const auto [what, rest] = firstWord(words); what == "shows") hand_.shown(firstWord(rest).first);
    };
    desktop::offerScreens(program.app);
    program.openDatabase();
    addOfficesAndDictionaries(program);
    for (const auto& line : walk.before) prepare(line);
}

void Scene::prepare(const std::string& line) {
    const auto [word, rest] = firstWord(line);
    if (word == "given") return execute(rest);
    if (word == "window") return program.programs.windows.push_back(filled(rest, text_));
    if (word == ">") return act(rest);
    const auto parts = split(rest, '|');
    const auto fields = program.app.session.fields();
    for (std::size_t i = 0; i < fields.size(); ++i) *fields[i] = filled(parts.at(i), text_);
}

void Scene::take(const Step& step) {
    for (const auto& line : step.lines) act(firstWord(line).second);
}

void Scene::act(const std::string& line) {
    const auto [verb, rest] = firstWord(line);
    if (verb == "enter") {
        program.enter();
    } else if (verb == "meanwhile") {
        // Another seat's doing is no statement of the program.
        const auto fault = std::exchange(program.fault, {});
        execute(rest);
        program.fault = fault;
    } else {
        hand_.act(filled(line, text_));
    }
}

void Scene::execute(const std::string& statement) {
    // The text stands between quotes.
    program.db().execute(filled(statement, replaced(text_, "'", "''")));
}

/// The tables with a row, by one statement: most are empty, and a server is asked over a line.
std::vector<std::string> Scene::filledTables() {
    std::vector<std::string> looks;
    for (const auto& table : schema::tables())
        looks.push_back("Case When 0 In (Select Count(*) From " + std::string(table.name) +
                        ") Then '' Else '" + std::string(table.name) + "' End");
    auto names = split(program.rows("Select " + join(looks, ",")).front(), '|');
    std::erase(names, "");
    return names;
}

std::vector<std::string> Scene::everyRow() {
    // To look is no statement of the program.
    const int in = std::exchange(program.fault.in, 0);
    const auto statements = program.fault.statements;
    std::vector<std::string> all;
    for (const std::string& name : filledTables())
        for (const auto& row : program.rows("Select * From " + name)) all.push_back(name + ": " + row);
    program.fault.in = in;
    program.fault.statements = statements;
    std::sort(all.begin(), all.end());
    return all;
}

std::string shownBy(const Screen& screen) {
    std::string all = screen.caption();
    for (const Control* control : screen.controls()) {
        all += "\n" + control->name() + ": ";
        if (const auto* box = dynamic_cast<const TextBox*>(control)) all += box->text();
        if (const auto* label = dynamic_cast<const Label*>(control)) all += label->caption();
        if (const auto* button = dynamic_cast<const Button*>(control)) all += button->caption();
        if (const auto* items = dynamic_cast<const ItemHolder*>(control))
            for (const Item& item : items->items()) all += item.text + "|";
        if (const auto* combo = dynamic_cast<const ComboBox*>(control)) all += std::to_string(combo->index());
        if (const auto* grid = dynamic_cast<const Grid*>(control))
            for (int row = 0; row < grid->rows(); ++row)
                for (int column = 0; column < grid->columns(); ++column) all += grid->text(row, column) + "|";
        if (const auto* tree = dynamic_cast<const Tree*>(control)) show(all, tree->roots());
    }
    return all;
}

std::vector<Screen*> Scene::screensInFront() const {
    std::vector<Screen*> front;
    if (Screen* child = program.app.screens.activeChild()) front.push_back(child);
    const auto& shown = program.desktop.shown;
    for (const std::string& name : std::set<std::string>(shown.begin(), shown.end()))
        if (Screen* screen = program.app.screens.loaded(name);
            screen != nullptr && screen->kind() == WindowKind::dialog)
            front.push_back(screen);
    return front;
}

}  // namespace desk
