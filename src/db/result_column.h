#pragma once

#include <string>

#include "db/tsql/type.h"
#include "schema/catalogue.h"

namespace desk {

/// A column of a statement's rows, whatever the engine.
struct ResultColumn {
    std::string name;
    tsql::Type type;
    const schema::Column* column;  ///< null for a value that is no column of the catalogue's
};

}  // namespace desk
