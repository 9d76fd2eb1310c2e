#pragma once

struct sqlite3;

namespace desk::embedded {

/// Throws the last failure of an open database as Connection tells it, in words that name what a person can
/// mend: another seat, the file, its folder, the disk.
[[noreturn]] void fail(sqlite3* database);

}  // namespace desk::embedded
