#pragma once

class QWidget;

namespace desk::desktop {

/// The keys that every screen has: Ctrl+S presses its 确定, Ctrl+N its 新增, Ctrl+F finds in the tree or grid
/// that has the focus, or in the first there is, F3 and Shift+F3 go on. `content` is the screen's content.
void addScreenKeys(QWidget* content);

}  // namespace desk::desktop
