#include <gtest/gtest.h>

#include <set>

#include "desktop/screen_list.h"
#include "every_screen/scene.h"

namespace desk {
namespace {

/// Have no statement that could fail; those of the login fail in its own tests, on a file.
const std::set<std::string> withoutWalk = {"frmLogin", "frmAbout", "Frmtu", "frmToExcel", "frm票据打印"};

TEST(Walks, GoThroughEveryScreenOfTheList) {
    std::set<std::string> visited = withoutWalk;
    for (const Walk& walk : walks()) {
        Scene scene(walk, "甲");
        for (const Step& step : walk.steps) {
            scene.take(step);
            for (const auto& known : desktop::screenList())
                if (scene.program.app.screens.loaded(known.name) != nullptr) visited.insert(known.name);
        }
        visited.insert(scene.program.desktop.shown.begin(), scene.program.desktop.shown.end());
    }
    for (const auto& known : desktop::screenList())
        EXPECT_TRUE(visited.contains(known.name)) << known.name << " has no walk";
}

}  // namespace
}  // namespace desk
