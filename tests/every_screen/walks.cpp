#include "every_screen/walks.h"

#include <fstream>

#include "support/transcript.h"

namespace desk {

namespace {

Walk walkIn(const std::string& name) {
    Walk walk{name, {}, {}};
    std::ifstream file(TEST_FOLDER "/walks/" + name + ".txt");
    for (std::string line; std::getline(file, line);) {
        const auto [word, rest] = firstWord(line);
        if (word == "step") {
            const auto [step, fates] = firstWord(rest);
            walk.steps.push_back({step, {}, fates});
        } else {
            (walk.steps.empty() ? walk.before : walk.steps.back().lines).push_back(line);
        }
    }
    return walk;
}

}  // namespace

const std::vector<Walk>& walks() {
    static const std::vector<Walk> all = [] {
        std::vector<Walk> found;
        for (const auto& name : transcriptsIn(TEST_FOLDER "/walks")) found.push_back(walkIn(name));
        return found;
    }();
    return all;
}

}  // namespace desk
