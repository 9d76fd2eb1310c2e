#include "support/transcript.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "db/engine.h"
#include "support/worksheet_words.h"

namespace desk {

namespace {

constexpr const char* indent = "    ";

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// Where two texts part, with a few lines before and behind.
std::string difference(const std::string& expected, const std::string& played) {
    const auto was = split(expected, '\n');
    const auto is = split(played, '\n');
    std::size_t first = 0;
    while (first < was.size() && first < is.size() && was[first] == is[first]) ++first;
    std::string shown = fmt::format("from line {} on\n", first + 1);
    for (std::size_t i = first < 4 ? 0 : first - 4; i < first; ++i) shown += "  " + was[i] + "\n";
    for (std::size_t i = first; i < std::min(first + 8, was.size()); ++i) shown += "- " + was[i] + "\n";
    for (std::size_t i = first; i < std::min(first + 8, is.size()); ++i) shown += "+ " + is[i] + "\n";
    return shown;
}

}  // namespace

Transcript::Transcript(std::string path, const std::function<void(TestProgram&)>& offer,
                       std::unique_ptr<Actor> actor, Playing playing)
    : path_(std::move(path)), playing_(playing), hand_(program, std::move(actor)) {
    offer(program);
    program.fault.seen = [this](std::string_view statement) {
        if (watching_ && !quiet_) say(std::string(statement));
    };
    program.machine.note = [this](const std::string& line) { say(line); };
    program.fault.opened = [this](Engine& engine) {
        for (const auto& statement : given_) engine.execute(statement);
    };
    program.desktop.note = [this](const std::string& words) {
        if (words == "waits") {
            ++ticks_;
            return;
        }
        say(words);
        const auto [what, rest] = firstWord(words);
        const std::string screen = firstWord(rest).first;
        if (what == "shows")
            hand_.shown(screen);
        else if (what == "closes")
            hand_.actor().closed(screen);
    };
    program.desktop.modalPerson = [this](Screen& screen) {
        settle();
        while (program.app.screens.loaded(screen.name()) == &screen && !script_.empty()) {
            const std::string line = script_.front();
            script_.pop_front();
            step(line);
        }
        if (ended_) throw ProcessEnded();
    };
}

Transcript::~Transcript() {
    // The program closes what is open when it goes, and nobody writes that down any more.
    program.desktop.note = [](const std::string&) {};
    program.machine.note = [](const std::string&) {};
}

void Transcript::check() {
    const std::string expected = contentOf(path_);
    for (auto& line : split(expected, '\n'))
        if (!line.starts_with(indent)) script_.push_back(std::move(line));
    while (!script_.empty() && script_.back().empty()) script_.pop_back();
    play();
    const char* mode = std::getenv("TRANSCRIPTS");
    if (playing_ == Playing::itself && mode != nullptr && std::string_view(mode) == "rewrite")
        std::ofstream(path_, std::ios::binary) << played_;
    else if (played_ != expected)
        ADD_FAILURE() << path_ << " " << difference(expected, played_);
}

void Transcript::play() {
    while (!script_.empty()) {
        const std::string line = script_.front();
        script_.pop_front();
        step(line);
    }
}

void Transcript::step(const std::string& line) {
    played_ += line + "\n";
    const bool acts = line.starts_with("> ");
    if (!acts) {
        const auto [verb, rest] = firstWord(line);
        if (verb == "include") return include(rest);
        if (verb == "given") return given_.push_back(rest);
        if (verb == "quiet") quiet_ = true;
        if (verb == "window") return program.programs.windows.push_back(rest);
        if (verb == "file") return void(program.files.present.insert(rest));
        if (verb == "refuses") return void(program.spreadsheets.refusal = rest);
        if (verb == "opens") return void(program.programs.canOpen = false);
        if (verb == "stops")
            program.desktop.watcher = [left = std::stoi(rest)](std::string_view, long, long) mutable {
                return --left != 0;
            };
        if (verb == "copies")
            program.machine.hook = [this, rest](const std::string& call) {
                if (call.starts_with("send ^")) program.clipboard.held = rest;
            };
        if (verb == "watch")
            for (const auto& table : split(rest, ' ')) tables_[table] = {};
        return;
    }
    try {
        act(line.substr(2));
    } catch (const RuntimeFailure& failure) {
        say(fmt::format("fails with {} {}", failure.number(), failure.description()));
    } catch (const ProcessEnded&) {
        if (!ended_) say("the program ends");
        ended_ = true;
    }
    if (!ended_) settle();
}

void Transcript::include(const std::string& file) {
    for (const auto& line : split(contentOf(path_.substr(0, path_.rfind('/') + 1) + file), '\n')) {
        const auto [verb, rest] = firstWord(line);
        if (verb == "given") given_.push_back(rest);
    }
}

void Transcript::enter() {
    program.openDatabase();
    program.enter();
    settle();
}

void Transcript::act(const std::string& line) {
    const auto [verb, rest] = firstWord(line);
    if (verb == "start") {
        program.app.start(rest);
    } else if (verb == "enter") {
        const auto from = played_.size();
        enter();
        played_.resize(from);
    } else if (verb == "setting") {
        const auto [key, value] = firstWord(rest);
        program.settings.keys[key] = value;
    } else if (verb == "meanwhile") {
        watching_ = false;
        program.db().execute(rest);
        watching_ = true;
        for (auto& [table, rows] : tables_) rows = rowsOf(table);
    } else {
        hand_.act(line);
    }
}

void Transcript::say(const std::string& line) {
    tellWaiting();
    std::string shown = line;
    for (std::size_t at = 0; (at = shown.find("\r\n", at)) != std::string::npos;) shown.replace(at, 2, "\\n");
    played_ += indent + shown + "\n";
}

void Transcript::tellWaiting() {
    if (const int ticks = std::exchange(ticks_, 0); ticks > 0) say(fmt::format("waits {} ticks", ticks));
}

void Transcript::settle() {
    tellWaiting();
    settleTables();
    settleScreens();
    settleMachine();
}

void Transcript::settleScreens() {
    std::erase_if(portraits_,
                  [&](const auto& held) { return program.app.screens.loaded(held.first) == nullptr; });
    for (const auto& name : hand_.screens()) {
        Screen& screen = *program.app.screens.loaded(name);
        if (!portraits_.contains(name)) watchFocus(screen);
        const Portrait now = hand_.actor().look(screen);
        const std::string lead = &screen == &hand_.current() ? "" : name + "/";
        for (const auto& line : changes(portraits_[name], now)) say(lead + line);
        portraits_[name] = now;
    }
}

void Transcript::watchFocus(const Screen& screen) {
    for (Control* control : screen.controls()) {
        focusWatches_.push_back(control->focusAsked.connect([this, control] {
            say("focus " + control->name());
            hand_.actor().led(*control);
        }));
        if (auto* box = dynamic_cast<TextBox*>(control))
            focusWatches_.push_back(
                box->selectAllAsked.connect([this, box] { say("selects " + box->name()); }));
        if (auto* tree = dynamic_cast<Tree*>(control))
            focusWatches_.push_back(tree->revealAsked.connect(
                [this](const TreeNode& node) { say(fmt::format("brings \"{}\" into view", node.text())); }));
        if (auto* grid = dynamic_cast<Grid*>(control))
            focusWatches_.push_back(grid->revealAsked.connect([this](int row) {
                // Told once, where a person types letter by letter.
                const std::string line = fmt::format("brings row {} into view", row);
                if (!played_.ends_with(line + "\n")) say(line);
            }));
    }
}

std::vector<std::string> Transcript::rowsOf(const std::string& table) {
    watching_ = false;
    std::vector<std::string> lines;
    for (Recordset rows(program.db(), "Select * From " + table); !rows.atEnd(); rows.moveNext()) {
        std::string line = table;
        for (int column = 0; column < rows.columnCount(); ++column)
            if (!rows[column].isNull())
                line += fmt::format(" {}={}", rows.columnName(column), rows[column].text());
        lines.push_back(line);
    }
    watching_ = true;
    std::sort(lines.begin(), lines.end());
    return lines;
}

void Transcript::settleTables() {
    if (!program.db().isOpen()) return;
    for (auto& [table, before] : tables_) {
        auto now = rowsOf(table);
        std::vector<std::string> gone;
        std::vector<std::string> come;
        std::set_difference(before.begin(), before.end(), now.begin(), now.end(), std::back_inserter(gone));
        std::set_difference(now.begin(), now.end(), before.begin(), before.end(), std::back_inserter(come));
        for (const auto& line : gone) say("- " + line);
        for (const auto& line : come) say("+ " + line);
        before = std::move(now);
    }
}

void Transcript::settleMachine() {
    std::vector<std::string> fields;
    for (const auto* field : program.app.session.fields()) fields.push_back(*field);
    if (const auto session = join(fields, "|"); session != session_) {
        say("session " + session);
        session_ = session;
    }
    for (const auto& [path, bytes] : program.files.written)
        say(fmt::format("writes {} bytes to {}", bytes.size(), path));
    program.files.written.clear();
    for (const auto& [path, sheets] : program.spreadsheets.books) {
        say("workbook " + path + (sheets.empty() ? " without a sheet" : ""));
        for (const auto& sheet : sheets)
            for (const auto& line : inWords(sheet)) say(line);
    }
    program.spreadsheets.books.clear();
}

std::vector<std::string> transcriptsIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".txt") names.push_back(entry.path().stem());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace desk
