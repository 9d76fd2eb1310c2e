#include "platform/key_string.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>

#include "base/failure.h"

namespace {

using namespace desk;

void require(bool held) {
    if (!held) std::abort();
}

/// Follows what the hand does, and must find nothing that it cannot do.
struct Hand {
    std::set<Modifier> held;

    void operator()(const typing::Hold& hold) { require(held.insert(hold.modifier).second); }
    void operator()(const typing::LetGo& go) { require(held.erase(go.modifier) == 1); }
    void operator()(const typing::Press& press) const {
        require(press.key >= Key::backspace && press.key <= Key::f16 && press.times >= 0);
    }
    void operator()(const typing::Type& type) const {
        require(type.character >= ' ' && type.character <= 0x10FFFF && type.times >= 0);
    }
};

}  // namespace

/// Reads any bytes as a key string. They are refused with 5, or nothing is held at their end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        Hand hand;
        for (const auto& action : readKeyString({reinterpret_cast<const char*>(data), size}))
            std::visit(hand, action);
        require(hand.held.empty());
    } catch (const RuntimeFailure& failure) {
        require(failure.number() == failure::invalidCall);
    }
    return 0;
}
