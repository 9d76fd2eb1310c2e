#pragma once

#include <string>
#include <vector>

#include "db/embedded/sqlite.h"

namespace desk::embedded {

/// What an open file lacks of the catalogue's definition.
struct DefinitionGaps {
    std::vector<std::string> tablesAndColumns;  ///< each in words
    std::vector<std::string> statements;        ///< that fill the gaps, missing indexes included

    bool none() const { return statements.empty(); }
};

/// Compares the open file with the catalogue. Tables, columns and indexes that only the file knows do not
/// count. Fails with -2147467259 for a file that is no database of this system.
DefinitionGaps gapsOf(const Sqlite& sqlite);

}  // namespace desk::embedded
