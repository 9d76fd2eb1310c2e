#pragma once

#include "db/tsql/ast.h"

/// What values become where they meet another value or a column: literals are rewritten on the spot,
/// everything else gets a conversion that the renderer writes. All fail with -2147217913 at a literal that
/// cannot be converted and with -2147217900 where kinds cannot meet.
namespace desk::tsql {

/// What a column of that kind gives.
Type typeOf(schema::Kind kind);

/// Makes two values comparable.
void makeComparable(Expression& left, Expression& right);

/// Makes a value fit to be calculated with.
void makeNumber(Expression& value);

/// Makes a value fit to be written into a column.
void makeStorable(Expression& value, const schema::Column& column);

}  // namespace desk::tsql
