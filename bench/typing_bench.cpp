#include <benchmark/benchmark.h>

#include "base/text.h"
#include "platform/form_in_front.h"
#include "platform/virtual_display.h"
#include "platform/x11/x11_keyboard.h"

namespace {

using namespace desk;

/// Characters a second, from the call until the other program has written down the last of them.
void type(benchmark::State& state, const std::string& text) {
    const VirtualDisplay display(VirtualDisplay::Manager::openbox);
    const FormInFront form;
    X11Keyboard keyboard;
    for (auto _ : state) {
        keyboard.send(text);
        keyboard.send("{F9}");
        if (form.lines(1) != std::vector{text + "||||"}) state.SkipWithError("lost on the way");
        form.forgetLines();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(characterCount(text)));
}

std::string latin() {
    std::string text;
    for (int i = 0; i < 100; ++i) text += static_cast<char>(i % 2 == 0 ? 'a' + i % 26 : '0' + i % 10);
    return text;
}

/// So many different ones, one after the other.
std::string han(int count) {
    std::u16string text;
    constexpr int first = 0x4E00;
    for (int i = 0; i < count; ++i) text += static_cast<char16_t>(first + 7 * i);
    return toUtf8(text);
}

BENCHMARK_CAPTURE(type, latin_100, latin())->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(type, han_15, han(15))->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(type, han_100, han(100))->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
