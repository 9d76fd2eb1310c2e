#pragma once

namespace desk {

/// From here on this process kills itself before the `last`-th step that SQLite takes on any file: before a
/// sync, a cut, a removal, the first write behind one of these, and every few writes of a long run.
void dieBeforeStep(int last);

/// While one of these lives no file can be locked, as on a disk that knows no locks.
class UnlockableFiles {
  public:
    UnlockableFiles();
    ~UnlockableFiles();
    UnlockableFiles(const UnlockableFiles&) = delete;
    UnlockableFiles& operator=(const UnlockableFiles&) = delete;
};

}  // namespace desk
