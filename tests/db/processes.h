#pragma once

#include <sys/types.h>

#include <functional>

namespace desk {

/// Starts a process beside this one, which does `work` and ends with 0, or with another code where it fails.
pid_t inProcess(const std::function<void()>& work);

/// How that process ends: its exit code, or the signal that killed it, below 0.
int endOf(pid_t process);

/// From here on this process kills itself before the `last`-th step that SQLite takes on any file: before a
/// sync, a cut, a removal, the first write behind one of these, and every few writes of a long run.
void dieBeforeStep(int last);

}  // namespace desk
