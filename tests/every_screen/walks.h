#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/test_program.h"

namespace desk {

/// A program at work, and the text that its person types wherever a text can be typed.
struct Scene {
    TestProgram program;
    std::string text;

    template <class S>
    S& screen() {
        return program.app.screens.get<S>();
    }
    void willSayYes() { program.desktop.answers = {Answer::yes}; }
};

/// One thing that a person does: a handler of a screen from its start to its end.
struct Step {
    std::string name;
    std::function<void(Scene&)> act;
    /// What becomes of the failure of each of its statements, in their order: "E" the program ends with its
    /// number and text, "B" a box with its text, "S" silence, "G" silence behind which the handler goes on to
    /// write. Empty: all of them end the program.
    std::string whenFailing{};
};

/// What is done on one screen, or on several that need each other, with what must be there before.
struct Walk {
    std::string name;
    std::function<void(Scene&)> before;
    std::vector<Step> steps;
};

/// Through every handler with a statement of every built screen.
const std::vector<Walk>& walks();

/// Those that have a file of their own, or one for their room.
std::vector<Walk> referenceWalks();
std::vector<Walk> customerWalks();
Walk letters();
Walk classification();
Walk deposits();
Walk taxInvoices();

/// A program that stands before the first step of the walk.
std::unique_ptr<Scene> sceneOf(const Walk& walk, std::string text);

/// Every row of every table; the order of rows does not count.
std::vector<std::string> everyRow(TestProgram& program);

/// All that a screen shows: texts, captions, entries, cells, nodes.
std::string shownBy(const Screen& screen);

/// The child in front and the dialogs that are up.
std::vector<Screen*> screensInFront(TestProgram& program);

}  // namespace desk
