#pragma once

#include <QMainWindow>
#include <QMdiArea>

#include "session/main_window.h"

namespace desk::desktop {

/// The window of MDIForm1: menu bar, banner, and the area that the children stand in.
class MainWindowView : public QMainWindow {
  public:
    explicit MainWindowView(MDIForm1& screen);

    QMdiArea& area() { return *area_; }
    /// Shows the text in the status bar for some seconds.
    void notify(const QString& text);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void fillMenuBar();
    void openMenu();

    MDIForm1& screen_;
    QMdiArea* area_;
};

}  // namespace desk::desktop
