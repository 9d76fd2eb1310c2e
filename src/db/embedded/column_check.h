#pragma once

#include <vector>

#include "db/difference.h"
#include "db/embedded/sqlite.h"
#include "schema/catalogue.h"

namespace desk::embedded {

/// What the file's columns of that table hold in another way than the definition says, as Engine tells.
std::vector<Difference> differencesOf(const Sqlite& sqlite, const schema::Table& table);

}  // namespace desk::embedded
