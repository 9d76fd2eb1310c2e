#pragma once

#include <optional>
#include <string>

#include "db/embedded/store.h"
#include "db/upgrade.h"

namespace desk::embedded {

/// What becomes of tables and columns that a file of the present version lacks: no program left it so.
enum class Damage {
    isRefused,   ///< a person decides first
    isRepaired,  ///< they are made anew, empty
};

/// Brings the definition of the file `path`, which is open in `store`, up to the present one: adds the
/// tables, columns and indexes that it lacks, in one transaction, after a copy beside it ("….v1.bak"). Where
/// several seats open the file at once, one does it and the others wait. Nothing if there is nothing to do.
/// Fails with -2147467259, and leaves the file as it was, when it comes from a newer program, is none of this
/// system, or cannot be brought up.
std::optional<Upgrade> bringUp(Store& store, const std::string& path, Damage damage);

}  // namespace desk::embedded
