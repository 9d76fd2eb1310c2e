#pragma once

#include "db/tsql/ast.h"

namespace desk::embedded {

/// Spares SQLite the making of grouped tables that are only looked into.
///
///     … From d Inner Join (Select k, Max(v) As v From d Group By k) A On d.k=A.k And d.v=A.v
///       Inner Join l On A.k=l.k
///
/// groups all of d before the first row is found, though few rows of l may be asked for. It becomes
///
///     … From d, l Where d.k=l.k And d.v=(Select Max(v) From d Where d.k=l.k)
///
/// in a resolved query and in those inside it, where both give the same rows: the grouped table is joined by
/// equality of all its keys, its aggregates are only compared with, and nothing else of it is read.
void lookUpGroups(tsql::Query& query);

}  // namespace desk::embedded
