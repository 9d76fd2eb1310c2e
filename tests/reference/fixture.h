#pragma once

#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/text.h"
#include "db/statement.h"
#include "support/test_program.h"

namespace desk {

/// A program with the offices and dictionaries of the other tests, in which setup screens are opened.
class SetupTest : public testing::Test {
  protected:
    SetupTest() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
    }

    template <class S>
    S& open() {
        if (!entered_) program.enter();
        entered_ = true;
        auto& screens = program.app.screens;
        screens.offer(S::screenName, [this] { return std::make_unique<S>(program.app); });
        if (Screen* loaded = screens.loaded(S::screenName)) screens.unload(*loaded);
        return screens.get<S>();
    }

    /// The texts of a row, joined by "|".
    template <class GridKind>
    static std::string line(const GridKind& grid, int row) {
        std::vector<std::string> cells;
        for (int column = 0; column < grid.columns(); ++column) cells.push_back(grid.text(row, column));
        return join(cells, "|");
    }

    static std::string panels(const StatusBar& bar) { return bar.panel(0) + "|" + bar.panel(1); }

    std::string said() { return program.desktop.takeMessage(); }
    void willAnswer(Answer answer) { program.desktop.answers = {answer}; }

    TestProgram program;

  private:
    bool entered_ = false;
};

}  // namespace desk
