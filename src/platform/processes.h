#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace desk {

/// Starts `program` (looked up as a shell would, but through no shell) beside this one; it belongs to the
/// system from then on, so that nothing of it is left to collect. False when it cannot be started, or when it
/// ends with a failure within `watched`, for which the call then waits.
bool startProcess(const std::string& program, const std::vector<std::string>& arguments,
                  std::chrono::milliseconds watched = {});

}  // namespace desk
