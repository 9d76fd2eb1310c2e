#include "ui/menu.h"

namespace desk {

MenuEntry::MenuEntry(Screen& screen, std::string caption, MenuEntry* parent)
    : Control(screen, std::move(caption)), parent_(parent) {
    setHolder(parent);
    if (parent != nullptr) parent->entries_.push_back(this);
}

void MenuEntry::click() {
    if (usable()) clicked();
}

}  // namespace desk
