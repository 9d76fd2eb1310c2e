#pragma once

namespace desk {

/// From here on this process kills itself before the `last`-th step that SQLite takes on any file: before a
/// sync, a cut, a removal, the first write behind one of these, and every few writes of a long run.
void dieBeforeStep(int last);

}  // namespace desk
