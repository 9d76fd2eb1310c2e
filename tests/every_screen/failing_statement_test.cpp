#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "every_screen/scene.h"

namespace desk {
namespace {

class EveryScreen : public testing::TestWithParam<std::size_t> {
  protected:
    const Walk& walk() const { return walks()[GetParam()]; }

    /// A program in which everything before that step has been done.
    std::unique_ptr<Scene> sceneBefore(std::size_t step) const {
        auto scene = std::make_unique<Scene>(walk(), "甲");
        for (std::size_t i = 0; i < step; ++i) scene->take(walk().steps[i]);
        scene->program.desktop.messages.clear();
        scene->program.fault.statements.clear();
        return scene;
    }
};

/// What became of a failure: the letters of Step::whenFailing, "?" for anything else.
char fateOf(Scene& scene, const Step& step) {
    try {
        scene.take(step);
    } catch (const RuntimeFailure& failure) {
        return failure.number() == failure::rowGone && failure.description() == Fault::text ? 'E' : '?';
    }
    const auto& messages = scene.program.desktop.messages;
    const auto told = std::count_if(messages.begin(), messages.end(), [](const Message& message) {
        return message.text.find(Fault::text) != std::string::npos;
    });
    return told == 0 ? 'S' : told == 1 ? 'B' : '?';
}

/// Each statement of each handler fails once. The program ends, tells it or goes on, as it should; and in the
/// database stands what the statements before it have done, no more and no less; of a transaction nothing.
TEST_P(EveryScreen, LosesAStatementAndKeepsItsOrder) {
    for (std::size_t i = 0; i < walk().steps.size(); ++i) {
        const Step& step = walk().steps[i];
        SCOPED_TRACE(walk().name + " " + step.name);
        std::vector<std::vector<std::string>> rowsBefore;
        const auto whole = sceneBefore(i);
        bool looking = false;
        bool together = false;
        whole->program.fault.seen = [&](std::string_view statement) {
            if (std::exchange(looking, true)) return;
            // Whatever fails within a transaction, all of it is undone.
            rowsBefore.push_back(together ? rowsBefore.back() : whole->everyRow());
            together = statement == "(begin)" || (together && statement != "(commit)");
            looking = false;
        };
        whole->take(step);
        const auto statements = whole->program.fault.statements;

        std::string fates;
        for (std::size_t n = 0; n < statements.size(); ++n) {
            const auto scene = sceneBefore(i);
            scene->program.fault.in = static_cast<int>(n) + 1;
            scene->program.fault.number = failure::rowGone;
            fates += fateOf(*scene, step);
            EXPECT_EQ(scene->program.fault.in, 0) << "not met: " << statements[n];
            if (n < step.whenFailing.size() && step.whenFailing[n] == 'G' && fates.back() == 'S') {
                fates.back() = 'G';
                EXPECT_NE(scene->everyRow(), rowsBefore[n]) << statements[n];
            } else {
                EXPECT_EQ(scene->everyRow(), rowsBefore[n]) << statements[n];
            }
            // What the person sees can still be read, and closed.
            for (auto front = scene->screensInFront(); !front.empty(); front = scene->screensInFront()) {
                EXPECT_FALSE(shownBy(*front.front()).empty());
                scene->program.app.screens.unload(*front.front());
            }
        }
        EXPECT_EQ(fates, step.whenFailing.empty() ? std::string(statements.size(), 'E') : step.whenFailing)
            << testing::PrintToString(statements);
    }
}

INSTANTIATE_TEST_SUITE_P(Walks, EveryScreen, testing::Range(std::size_t{0}, walks().size()),
                         [](const auto& walk) { return walks()[walk.param].name; });

}  // namespace
}  // namespace desk
