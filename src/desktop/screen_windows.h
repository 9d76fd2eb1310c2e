#pragma once

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QWidget>

#include "ui/screen.h"
#include "ui/screens.h"

namespace desk::desktop {

/// Runs the screen's timers for as long as `window` lives.
void runTimers(Screen& screen, QObject* window);

/// A screen inside the main window.
class ChildWindow : public QMdiSubWindow {
  public:
    ChildWindow(Screens& screens, Screen& screen, QWidget* content, QMdiArea& area);
    void bringToFront();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void place();

    Screens& screens_;
    Screen& screen_;
    QMdiArea& area_;
    bool activating_ = false;
};

/// A screen in a window of its own.
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
