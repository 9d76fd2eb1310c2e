#pragma once

namespace desk {

/// What arrow keys and typed letters do in a tree, a grid or a list of which one line is selected.
enum class MovingKeys {
    click,  ///< where they go is clicked
    move,   ///< they move the selection; Space and Enter are the click
};

}  // namespace desk
