#pragma once

#include <sys/types.h>

#include <string>

namespace desk {

/// Starts a seat of its own process that registers so many leads; -1 when it cannot be started.
pid_t startSeat(const std::string& path, const std::string& name, int rows);

/// Waits until that process has the file open, or has ended.
void awaitOpen(pid_t seat, const std::string& path);

/// Waits for its end; -1 unless it ended by itself.
int exitCode(pid_t seat);

}  // namespace desk
