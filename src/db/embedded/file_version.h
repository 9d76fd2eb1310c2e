#pragma once

#include "db/embedded/sqlite.h"

namespace desk::embedded {

/// The version of the definition that an open file was made by: 1 for a file without a mark, which the first
/// program made. Fails with -2147467259 for a file that carries the mark of another program, and for one that
/// a newer program has made or brought up: only that one knows what it may write there.
int definitionVersionOf(const Sqlite& sqlite);

/// Marks the open file as one of the present definition.
void markAsPresent(const Sqlite& sqlite);

}  // namespace desk::embedded
