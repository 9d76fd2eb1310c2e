#pragma once

#include <string>
#include <string_view>

#include "db/value.h"

/// What a server must be told in its own way.
namespace desk::odbc {

/// One statement as it is sent.
struct ServerStatement {
    std::string text;
    bool writes = false;  ///< gives no rows
};

/// The statement, with an N before each literal that has characters beyond ASCII: a server of another
/// language would store question marks for them. Fails with -2147217900 at what is no statement, or more than
/// one.
ServerStatement serverStatement(std::string_view statement);

/// A value as an engine holds it, as a literal.
std::string literal(const Value& held);

/// A name of the catalogue.
std::string bracketed(std::string_view name);

}  // namespace desk::odbc
