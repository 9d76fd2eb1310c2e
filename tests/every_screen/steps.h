#pragma once

#include <string>
#include <utility>

#include "every_screen/walks.h"
#include "ui/grid.h"
#include "ui/tree.h"

namespace desk {

/// The position enters a program that has the one screen.
template <class S>
void enterFor(Scene& scene) {
    scene.program.enter();
    scene.program.app.screens.offer<S>(scene.program.app);
}

template <class S>
Step opening(std::string whenFailing = {}) {
    return {"打开", [](Scene& scene) { scene.program.app.screens.open(S::screenName); },
            std::move(whenFailing)};
}

inline void clickNode(Tree& tree, const std::string& key) {
    tree.click(*tree.find(key));
}

/// The only entry of a setup grid is chosen.
inline void clickFirst(Grid& grid) {
    grid.click(grid.fixedRows(), 1);
}

}  // namespace desk
