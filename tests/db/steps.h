#pragma once

#include <string>
#include <vector>

namespace desk {

/// A step of a text of this folder: a line with what is asked and, indented below it, the lines that come.
struct Step {
    int line;  ///< of the text, from 1 on
    std::string asked;
    std::vector<std::string> told;
};

/// The steps of the text of that name. Lines that begin with # are remarks.
std::vector<Step> stepsOf(const std::string& name);

/// Fails the running test where a step of the text is told otherwise now. With TRANSCRIPTS=rewrite in the
/// environment the text is written anew instead.
void compare(const std::string& name, const std::vector<Step>& now);

}  // namespace desk
