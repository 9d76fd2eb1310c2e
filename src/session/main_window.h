#pragma once

#include <deque>

#include "session/application.h"
#include "ui/canvas.h"
#include "ui/choices.h"
#include "ui/menu.h"

namespace desk {

/// The shell: a menu bar that opens each screen as a child, a banner, a background. Its load step applies the
/// position's privileges; it owns the ways out.
class MDIForm1 : public Screen {
  public:
    static constexpr const char* screenName = "MDIForm1";

    explicit MDIForm1(Application& app);
    void load() override;
    void resize() override;
    void unload() override;

    /// Greys the menu bar to what `登录岗位代号` may use of the module. A failure is shown and ends it half
    /// done.
    void 权限设置(const std::string& 模块);

    /// The entry of that caption, null without one; the first if several have it.
    MenuEntry* entry(std::string_view caption);
    /// The tag of an entry that opens a screen is the screen's name.
    const std::deque<MenuEntry>& entries() const { return entries_; }

    Canvas Picture1{*this, "Picture1"};    ///< the banner along the top
    StatusBar 状态栏{*this, "状态栏", 3};  ///< who works here, as what, on which database
    /// What lies behind the children; empty without one.
    const Picture& background() const { return background_; }
    void setBackground(Picture picture);

    Signal<> backgroundChanged;

  private:
    MenuEntry& add(const char* caption, MenuEntry* parent = nullptr);
    void addScreenMenu(const char* top, std::initializer_list<std::pair<const char*, const char*>> entries);
    void addOwnMenus();
    void openOnClick(MenuEntry& entry, const char* screen);
    void showSession();
    void switchModule();
    void logOff();
    void leaveMultiModule();
    void contactUs();
    void paintBanner();

    Application& app_;
    std::deque<MenuEntry> entries_;
    Picture background_;
    std::optional<Picture> banner_;
};

}  // namespace desk
