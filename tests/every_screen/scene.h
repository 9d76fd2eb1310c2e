#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "every_screen/walks.h"
#include "support/scripted_hand.h"
#include "support/test_program.h"

namespace desk {

/// A program at work, and the text that its person types wherever a text can be typed.
class Scene {
  public:
    /// Stands before the first step of the walk.
    Scene(const Walk& walk, std::string text);

    void take(const Step& step);

    /// Every row of every table; the order of rows does not count.
    std::vector<std::string> everyRow();
    /// The child in front and the dialogs that are up.
    std::vector<Screen*> screensInFront() const;

    TestProgram program;

  private:
    void prepare(const std::string& line);
    void act(const std::string& line);
    void execute(const std::string& statement);
    std::vector<std::string> filledTables();

    ScriptedHand hand_{program};
    std::string text_;
};

/// All that a screen shows: texts, captions, entries, cells, nodes.
std::string shownBy(const Screen& screen);

}  // namespace desk
