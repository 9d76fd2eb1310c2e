#include "tour/patience.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace desk::tour {

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

/// More often than the program's own clock ticks.
constexpr milliseconds often{40};
constexpr milliseconds betweenLooks{5};
/// In a row; a process may sleep for a moment while what wakes it is on its way.
constexpr int looksAsleep = 3;
/// One that never sleeps is no reason to hold up everything.
constexpr std::chrono::seconds longest{60};

/// Empty also for a process that ends just now.
std::string contentOf(const fs::path& file) {
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

/// Whether the process works on the display that DISPLAY names.
bool isOfThisDisplay(const fs::path& process, const std::string& display) {
    return contentOf(process / "environ").find("DISPLAY=" + display + '\0') != std::string::npos;
}

/// The server of the display leaves its number in a file.
std::string serverOf(const std::string& display) {
    std::string number = contentOf("/tmp/.X" + display.substr(1, display.find('.') - 1) + "-lock");
    number.erase(std::remove_if(number.begin(), number.end(), [](char c) { return c < '0' || c > '9'; }),
                 number.end());
    return number;
}

std::vector<fs::path> others() {
    const char* name = std::getenv("DISPLAY");
    const std::string display = name == nullptr || *name != ':' ? ":" : name;
    const std::string server = serverOf(display);
    std::vector<fs::path> found;
    std::error_code gone;
    for (const auto& process : fs::directory_iterator("/proc", gone)) {
        const std::string kind = contentOf(process.path() / "comm");
        const bool ours = kind == "openbox\n" || kind == "tax-program\n";
        if ((!server.empty() && process.path().filename() == server) ||
            (ours && isOfThisDisplay(process.path(), display)))
            found.push_back(process.path());
    }
    return found;
}

bool sleeps(const fs::path& process) {
    const std::string state = contentOf(process / "stat");
    const auto behindName = state.rfind(')');
    // Nothing to read: it has ended.
    return behindName == std::string::npos ||
           std::string_view("SZX").find(state[behindName + 2]) != std::string_view::npos;
}

}  // namespace

Patience::Patience() {
    connect(&now_, &QTimer::timeout, this, untilOthersSleep);
    now_.start(often);
}

void Patience::untilOthersSleep() {
    const auto end = std::chrono::steady_clock::now() + longest;
    int asleep = 0;
    while (asleep < looksAsleep && std::chrono::steady_clock::now() < end) {
        const auto all = others();
        asleep = std::all_of(all.begin(), all.end(), sleeps) ? asleep + 1 : 0;
        if (asleep < looksAsleep) std::this_thread::sleep_for(betweenLooks);
    }
}

}  // namespace desk::tour
