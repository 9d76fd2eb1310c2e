#pragma once

#include <string>
#include <vector>

namespace desk {

/// One thing that a person does: a handler of a screen from its start to its end.
struct Step {
    std::string name;
    std::vector<std::string> lines;  ///< as ScriptedHand takes them
    /// What becomes of the failure of each of its statements, in their order: "E" the program ends with its
    /// number and text, "B" a box with its text, "S" silence, "G" silence behind which the handler goes on to
    /// write. Empty: all of them end the program.
    std::string whenFailing;
};

/// What is done on one screen, or on several that need each other, with what must be there before. Each is a
/// file of the folder "walks":
///
///     given Insert Into …          rows that are there
///     > enter                      the position enters the program
///     position E01|林|…             another one, all fields of it
///     window 鸿序楼台                another program's window that can be brought to the front
///     step 新增 BBE                 a step, and what becomes of failures
///     > type 公司名称 {text}         what the person does
///
/// In place of {text} comes what the person types wherever a text can be typed; {dense} is the text without
/// its blanks, {code} the text up to its first blank.
struct Walk {
    std::string name;
    std::vector<std::string> before;
    std::vector<Step> steps;
};

/// Through every handler with a statement of every screen.
const std::vector<Walk>& walks();

}  // namespace desk
