#include <benchmark/benchmark.h>
#include <signal.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/text.h"
#include "platform/eventually.h"
#include "platform/virtual_display.h"
#include "platform/x11/x11_keyboard.h"
#include "platform/x11/x11_programs.h"

namespace {

using namespace desk;

/// A display with a form in front, which writes down what it is given.
class Front {
  public:
    Front() {
        ::setenv("FORM_JOURNAL", journal_.c_str(), 1);
        form_ = programs_.startMinimised(FORM_PROGRAM);
        becomesTrue([this] { return programs_.hasWindow("表单"); });
        programs_.activate("表单");
    }
    ~Front() {
        ::kill(static_cast<pid_t>(form_), SIGTERM);
        std::filesystem::remove(journal_);
    }

    /// Types the text into the first field, until the form has written it down.
    void type(const std::string& text) {
        keyboard_.send(text);
        keyboard_.send("{F9}");
        ++lines_;
        while (linesWritten() < lines_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

  private:
    std::size_t linesWritten() const {
        std::ifstream file(journal_);
        std::size_t count = 0;
        for (std::string line; std::getline(file, line);) ++count;
        return count;
    }

    VirtualDisplay display_{VirtualDisplay::Manager::openbox};
    std::string journal_ = std::filesystem::temp_directory_path() / "typing-bench-journal";
    X11Programs programs_;
    X11Keyboard keyboard_;
    std::int64_t form_ = 0;
    std::size_t lines_ = 0;
};

/// Characters a second, from the call until the other program has read the last of them.
void type(benchmark::State& state, const std::string& text) {
    Front front;
    for (auto _ : state) front.type(text);
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
