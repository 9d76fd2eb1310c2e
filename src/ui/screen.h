#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/signal.h"

namespace desk {

class Control;

/// How a screen's window stands.
enum class WindowKind {
    main,    ///< the frame that holds the children
    child,   ///< inside the main window
    dialog,  ///< a window of its own
};

/// What every screen has. A screen exists at most once, is made on first use and gone when unloaded (see
/// Screens).
class Screen {
  public:
    /// `width` and `height` are those it is designed for, in twips.
    Screen(std::string name, std::string caption, WindowKind kind, double width, double height);
    virtual ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// The first step of its life, run once when it has been made.
    virtual void load() {}
    /// Its window has become the active one.
    virtual void activate() {}
    /// Its window has a new size; width() and height() are set.
    virtual void resize() {}
    /// A person closes its window; it is unloaded if this returns.
    virtual void closeAsked() {}
    /// The last step of its life.
    virtual void unload() {}

    const std::string& name() const { return name_; }
    WindowKind kind() const { return kind_; }
    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);

    /// Inner size and place in the parent, in twips.
    double width() const { return width_; }
    double height() const { return height_; }
    double left() const { return left_; }
    double top() const { return top_; }
    /// Told by whoever shows the screen; runs resize() if the size is new.
    void setSize(double width, double height);
    /// Asked by the screen.
    void moveTo(double left, double top);
    void maximise() { maximiseAsked(); }
    /// Asks that its window be neither maximised nor minimised.
    void restore() { restoreAsked(); }

    /// Whether it is in use: false from its last step on, though the object lives until no handler runs.
    bool isThere() const { return *there_; }

    /// Those that live now; they may come and go while a handler runs.
    const std::vector<Control*>& controls() const { return controls_; }
    /// The control of that name, null when there is none.
    Control* control(std::string_view controlName) const;

    std::string tag;  ///< free for whoever opens the screen

    Signal<> touched;  ///< caption or place is new
    Signal<> maximiseAsked;
    Signal<> restoreAsked;
    Signal<> gone;  ///< it has been unloaded and will not be shown again

  private:
    friend class Control;
    friend class Screens;
    friend class ScreenWatch;
    std::string name_;
    std::string caption_;
    WindowKind kind_;
    double width_;
    double height_;
    double left_ = 0;
    double top_ = 0;
    std::vector<Control*> controls_;
    std::shared_ptr<bool> there_ = std::make_shared<bool>(true);
};

/// For a handler that lets events run, or shows a box, in the middle of its work: tells afterwards whether
/// its screen is still there. May outlive the screen.
///
///     const ScreenWatch screen(*this);
///     app_.desktop.letEventsRun();
///     if (!screen.isThere()) return;
class ScreenWatch {
  public:
    explicit ScreenWatch(const Screen& screen) : there_(screen.there_) {}
    bool isThere() const { return *there_; }

  private:
    std::shared_ptr<const bool> there_;
};

/// Sets the text of each text box of the screen to the empty text; other controls are left alone.
void 清空文本框(Screen& screen);

}  // namespace desk
