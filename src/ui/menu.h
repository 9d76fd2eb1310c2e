#pragma once

#include <string>
#include <vector>

#include "ui/control.h"

namespace desk {

/// One entry of a menu bar: a top entry, an entry below it, or the line "-".
class MenuEntry : public Control {
  public:
    /// `parent` is null for a top entry. The name is the caption.
    MenuEntry(Screen& screen, std::string caption, MenuEntry* parent = nullptr);
    ~MenuEntry() override;

    const std::string& caption() const { return name(); }
    MenuEntry* parent() const { return parent_; }
    const std::vector<MenuEntry*>& entries() const { return entries_; }
    bool isSeparator() const { return caption() == "-"; }

    /// A person's choice; nothing while it or an entry above it is disabled or hidden.
    void click();

    Signal<> clicked;

  private:
    MenuEntry* parent_;
    std::vector<MenuEntry*> entries_;
};

}  // namespace desk
