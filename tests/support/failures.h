#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "base/failure.h"

namespace desk {

/// What becomes of `action`: the number and text of the failure that it ends with, 0 and none if it ends
/// well.
struct Outcome {
    long number = 0;
    std::string text{};
    bool operator==(const Outcome&) const = default;
};

inline Outcome outcomeOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeFailure& failure) {
        return {failure.number(), failure.description()};
    }
    return {};
}

inline void PrintTo(const Outcome& outcome, std::ostream* out) {
    *out << outcome.number << " " << outcome.text;
}

inline long failureOf(const std::function<void()>& action) {
    return outcomeOf(action).number;
}

inline std::string failureTextOf(const std::function<void()>& action) {
    return outcomeOf(action).text;
}

}  // namespace desk
