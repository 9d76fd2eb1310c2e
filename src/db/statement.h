#pragma once

#include <fmt/format.h>

#include <string>
#include <utility>

namespace desk {

/// A statement with `values` in its braces, each as it stands. This is the only way by which a value gets
/// into a statement: how values are written there is decided here and nowhere else.
template <class... Values>
std::string sql(fmt::format_string<Values...> statement, Values&&... values) {
    return fmt::format(statement, std::forward<Values>(values)...);
}

}  // namespace desk
