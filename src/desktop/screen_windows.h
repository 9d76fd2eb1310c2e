#pragma once

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QWidget>
#include <optional>

#include "desktop/window_change.h"
#include "ui/screen.h"
#include "ui/screens.h"

namespace desk::desktop {

/// Runs the screen's timers for as long as `window` lives.
void runTimers(Screen& screen, QObject* window);

/// A screen inside the main window, never larger than the area there. One that needs more room can be
/// scrolled.
class ChildWindow : public QMdiSubWindow {
  public:
    ChildWindow(Screens& screens, Screen& screen, QWidget* content, QMdiArea& area);
    void bringToFront();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QSize frame() const;
    void fit();
    void place();
    void keepFocus(const QWidget* before, QWidget* now);
    void restoreFocus();
    void focusFirst();
    bool holds(const QWidget* part) const { return part != nullptr && isAncestorOf(part); }

    Screens& screens_;
    Screen& screen_;
    QMdiArea& area_;
    bool activating_ = false;
    bool shown_ = false;       ///< has been in front before
    QPointer<QWidget> field_;  ///< that the person was in last
    std::optional<WindowChange> change_;
    QObject listening_;  ///< to other objects, which outlive this part of the window
};

/// A screen in a window of its own, no larger than the display. One that needs more room can be scrolled.
class DialogWindow : public QWidget {
  public:
    DialogWindow(Screens& screens, Screen& screen, QWidget* content);

    Signal<> closed;  ///< its screen has been unloaded

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    Screens& screens_;
    Screen& screen_;
};

}  // namespace desk::desktop
