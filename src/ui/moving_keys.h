#pragma once

namespace desk {

/// What arrow keys and typed letters do in a tree or a grid.
enum class MovingKeys {
    click,  ///< where they go is clicked
    move,   ///< they move the selection; Space and Enter are the click
};

}  // namespace desk
