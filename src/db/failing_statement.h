#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "base/failure.h"

namespace desk {

/// The statement as it may be shown and logged: one that speaks of a password keeps none of its texts.
std::string withoutSecrets(std::string_view statement);

/// Runs `work`, which is done for `statement`: a failure that comes out of it names the statement.
template <class Work>
decltype(auto) naming(std::string_view statement, Work&& work) {
    try {
        return std::forward<Work>(work)();
    } catch (RuntimeFailure& failure) {
        failure.setStatement(withoutSecrets(statement));
        throw;
    }
}

}  // namespace desk
