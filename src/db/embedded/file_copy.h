#pragma once

#include <string>

#include "db/embedded/sqlite.h"

namespace desk::embedded {

/// Writes the open database `from`, as it stands at one moment, to the new file `to`, and makes sure that the
/// copy is sound. Others may read `from` meanwhile; whoever writes waits. `to` appears only when it is whole.
/// Fails with -2147467259 when it cannot be written, or when what was copied is damaged.
void copyTo(const Sqlite& from, const std::string& to);

}  // namespace desk::embedded
