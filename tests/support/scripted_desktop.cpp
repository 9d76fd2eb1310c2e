#include "support/scripted_desktop.h"

#include <gtest/gtest.h>

#include <set>

#include "base/text.h"
#include "ui/fields.h"

namespace desk {

namespace {

template <class T>
T next(std::deque<T>& script, const char* what) {
    if (script.empty()) {
        ADD_FAILURE() << "nobody answers: " << what;
        throw ProcessEnded();
    }
    T answer = script.front();
    script.pop_front();
    return answer;
}

std::string inWords(const Message& message) {
    const char* icons[] = {"box", "information box", "question box", "warning box"};
    std::string words = icons[static_cast<int>(message.icon)];
    if (!message.title.empty()) words += " \"" + message.title + "\"";
    return words + (message.buttons == Buttons::yesNo ? " yes/no: " : ": ") + message.text;
}

}  // namespace

std::string ScriptedDesktop::takeMessage() {
    const std::string text = messages.empty() ? "" : messages.back().text;
    messages.clear();
    return text;
}

void ScriptedDesktop::show(Screen& screen) {
    shown.push_back(screen.name());
    note("shows " + screen.name());
}

void ScriptedDesktop::showModally(Screen& screen) {
    shown.push_back(screen.name());
    note("shows " + screen.name() + " and waits");
    if (modalPerson)
        modalPerson(screen);
    else
        ADD_FAILURE() << screen.name() << " is shown modally and nobody is there";
}

void ScriptedDesktop::bringToFront(Screen& screen) {
    inFront = screen.name();
    if (screens != nullptr) screens->activated(screen);
}

void ScriptedDesktop::close(Screen& screen) {
    closed.push_back(screen.name());
    note("closes " + screen.name());
}

Answer ScriptedDesktop::messageBox(const Message& message) {
    messages.push_back(message);
    note(inWords(message));
    return message.buttons == Buttons::ok ? Answer::ok : next(answers, message.text.c_str());
}

std::optional<Colour> ScriptedDesktop::chooseColour(Colour) {
    note("asks for a colour");
    return next(colours, "a colour");
}
std::optional<std::string> ScriptedDesktop::chooseFile(const FileQuestion& question) {
    const std::string what =
        question.purpose == FilePurpose::save ? "asks where to save in " : "asks for a file in ";
    note(what + question.directory + ", " + question.filter +
         (question.proposal.empty() ? "" : ", proposes " + question.proposal));
    fileQuestions.push_back(question);
    return next(files, "a file");
}

double ScriptedDesktop::textWidth(const Screen&, std::string_view text) {
    return measure(text);
}

std::string ScriptedDesktop::shortDate(const DateTime& day) {
    return formatDate(day, "YYYY/M/D");
}

void ScriptedDesktop::notify(std::string_view text) {
    notices.emplace_back(text);
    note("tells in passing \"" + notices.back() + "\"");
}

bool ScriptedDesktop::showProgress(std::string_view what, long done, long total, Stopping stopping) {
    showsProgress = total != 0;
    const bool goesOn = !showsProgress || watcher(what, done, total);
    return goesOn || stopping == Stopping::impossible;
}

void ScriptedDesktop::awaitEvents() {
    events();
    bool ticked = false;
    for (const auto& name : std::set<std::string>(shown.begin(), shown.end())) {
        const Screen* screen = screens->loaded(name);
        if (screen == nullptr) continue;
        for (Control* control : screen->controls()) {
            auto* timer = dynamic_cast<Timer*>(control);
            if (timer == nullptr || !timer->enabled()) continue;
            ticked = true;
            timer->tick();
        }
    }
    if (ticked) note("waits");
}

std::optional<Picture> ScriptedDesktop::loadPicture(std::string_view) {
    return pictureOnDisk;
}

}  // namespace desk
