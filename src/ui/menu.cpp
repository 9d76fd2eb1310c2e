#include "ui/menu.h"

namespace desk {

MenuEntry::MenuEntry(Screen& screen, std::string caption, MenuEntry* parent)
    : Control(parent != nullptr ? Place(*parent) : Place(screen), std::move(caption)), parent_(parent) {
    if (parent != nullptr) parent->entries_.push_back(this);
}

MenuEntry::~MenuEntry() {
    for (MenuEntry* entry : entries_) entry->parent_ = nullptr;
    if (parent_ != nullptr) std::erase(parent_->entries_, this);
}

void MenuEntry::click() {
    if (usable()) clicked();
}

}  // namespace desk
