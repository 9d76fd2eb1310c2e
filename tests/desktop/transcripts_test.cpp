#include <fstream>

#include "desktop/screen_list.h"
#include "desktop/window_actor.h"
#include "support/transcripts_of_room.h"

namespace desk::desktop {
namespace {

/// The scripts of the rooms, played through the real windows: the program must do the same.
class TranscriptsInWindows : public testing::TestWithParam<std::string> {};

TEST_P(TranscriptsInWindows, Hold) {
    Transcript(
        TEST_FOLDER "/../" + GetParam() + ".txt", [](TestProgram& program) { offerScreens(program.app); },
        std::make_unique<WindowActor>(), Transcript::Playing::onceMore)
        .check();
}

/// Where a failure that nobody traps would end the process, the windows are left out.
bool staysWithoutWindows(const std::string& script) {
    std::ifstream file(TEST_FOLDER "/../" + script + ".txt");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("    fails with ")) return true;
    return false;
}

std::vector<std::string> scripts() {
    std::vector<std::string> all;
    for (const std::string room : {"customers", "reference", "intent", "money", "analysis"})
        for (const auto& name : transcriptsIn(TEST_FOLDER "/../" + room + "/transcripts"))
            if (const auto script = room + "/transcripts/" + name; !staysWithoutWindows(script))
                all.push_back(script);
    return all;
}

INSTANTIATE_TEST_SUITE_P(Rooms, TranscriptsInWindows, testing::ValuesIn(scripts()),
                         [](const auto& named) { return named.param.substr(named.param.rfind('/') + 1); });

}  // namespace
}  // namespace desk::desktop
