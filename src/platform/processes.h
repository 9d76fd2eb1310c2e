#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "platform/descriptor.h"

namespace desk {

/// Starts `program` (looked up as a shell would, but through no shell) beside this one; it belongs to the
/// system from then on, so that nothing of it is left to collect. False when it cannot be started, or when it
/// ends with a failure within `watched`, for which the call then waits.
bool startProcess(const std::string& program, const std::vector<std::string>& arguments,
                  std::chrono::milliseconds watched = {});

/// A program that was started, for as long as one wants to know whether it still runs.
class RunningProgram {
  public:
    /// Starts as startProcess() does, and does not wait; nullopt when it cannot be started.
    static std::optional<RunningProgram> start(const std::string& program);

    pid_t process() const { return process_; }
    bool isRunning() const;

  private:
    RunningProgram(pid_t process, Descriptor end) : process_(process), end_(std::move(end)) {}

    pid_t process_;
    Descriptor end_;  ///< readable once the process has ended, whoever gets its number afterwards
};

}  // namespace desk
