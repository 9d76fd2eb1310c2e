#pragma once

#include <vector>

#include "db/difference.h"
#include "db/engine.h"
#include "schema/catalogue.h"

namespace desk::odbc {

/// What the server's columns of that table cannot hold, or hold in another way, as Engine tells.
std::vector<Difference> differencesOf(Engine& engine, const schema::Table& table);

}  // namespace desk::odbc
