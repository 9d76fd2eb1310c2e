#pragma once

#include <string>
#include <vector>

namespace desk::admin {

/// "run FILE SCRIPT": runs the statements of a text file on a database, one a line, all of them or none.
/// Empty lines and lines that begin with "--" are passed over. Fails with the number of the line that was
/// refused.
void runScript(const std::vector<std::string>& words);

}  // namespace desk::admin
