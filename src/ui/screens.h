#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/screen.h"

namespace desk {

class Desktop;

/// The screens of the program, each at most once.
class Screens {
  public:
    using Maker = std::function<std::unique_ptr<Screen>()>;

    /// `desktop` shows them and must live longer.
    explicit Screens(Desktop& desktop) : desktop_(desktop) {}
    /// Takes the windows away, and destroys the screens without their last step.
    ~Screens();
    Screens(const Screens&) = delete;
    Screens& operator=(const Screens&) = delete;

    /// Tells how the screen of that name is made.
    void offer(std::string name, Maker maker);
    /// The same for the screen whose class is S, which `owner` is handed to.
    template <class S, class Owner>
    void offer(Owner& owner) {
        offer(S::screenName, [&owner] { return std::make_unique<S>(owner); });
    }

    /// The screen of that name, made and loaded now if it does not exist. Fails with 424 if nobody offers it.
    /// A screen whose load fails is gone; one that unloads itself while it loads is given, but is not there.
    Screen& get(std::string_view name);
    /// The screen whose class is S; S::screenName is its name.
    template <class S>
    S& get() {
        return static_cast<S&>(get(S::screenName));
    }
    /// The screen of that name if it exists now, otherwise null.
    Screen* loaded(std::string_view name) const;

    /// Shows the screen's one instance and brings it to the front, unless it has unloaded itself by then.
    void open(std::string_view name);
    /// Runs the screen's last step and takes its window away. The object lives on until dropUnloaded(), since
    /// one of its own handlers may be running. Nothing when the screen is unloaded already.
    void unload(Screen& screen);
    /// Whether there is something for dropUnloaded() to do.
    bool hasUnloaded() const { return !unloaded_.empty(); }
    /// Destroys what has been unloaded; to be called when no handler runs.
    void dropUnloaded();

    /// The child that was shown or activated last, null without one.
    Screen* activeChild() const;
    /// Told by whoever shows the screens.
    void activated(Screen& screen);

  private:
    bool putAway(Screen& screen);

    Desktop& desktop_;
    std::map<std::string, Maker, std::less<>> makers_;
    std::vector<std::unique_ptr<Screen>> screens_;  ///< the one activated last stands last
    std::vector<std::unique_ptr<Screen>> unloaded_;
};

}  // namespace desk
