#pragma once

#include <string_view>

class QWidget;

namespace desk {
class Tree;
}

namespace desk::desktop {

/// Which nodes of a tree are its entries.
enum class Entries { top, belowTop };

/// The tree, and below it how many entries it has, where it has any nodes. Screen readers call the tree
/// `spoken`.
QWidget* counted(Tree& tree, std::string_view spoken, Entries entries);

}  // namespace desk::desktop
