#pragma once

#include "db/tsql/ast.h"

namespace desk::tsql {

/// Looks up every table and column of a statement in the catalogue, tells the type of every expression,
/// converts literals to what they meet, and puts the columns in the place of `*`. Afterwards the statement
/// holds for the catalogue's tables. Fails with -2147217900 at a name that is unknown or ambiguous and at an
/// expression that cannot stand where it does, with -2147217913 at a literal that cannot be converted.
void resolve(Statement& statement);

/// Whether the query's rows are rows of one table, so that they can be changed through it.
const schema::Table* updatableTable(const Query& query);

}  // namespace desk::tsql
