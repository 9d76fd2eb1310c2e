#pragma once

#include <chrono>
#include <thread>

namespace desk {

/// Looks again until it is so, for as long as a loaded machine may take.
template <class Question>
bool becomesTrue(Question question) {
    using namespace std::chrono_literals;
    for (int i = 0; i < 10'000; ++i) {
        if (question()) return true;
        std::this_thread::sleep_for(2ms);
    }
    return false;
}

}  // namespace desk
