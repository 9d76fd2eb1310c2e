#pragma once

#include <QObject>
#include <QPointer>
#include <map>
#include <memory>
#include <vector>

#include "desktop/text_widths.h"
#include "session/application.h"
#include "ui/desktop.h"

class QProgressDialog;
class QWidget;

namespace desk::desktop {

class MainWindowView;

/// Shows screens in Qt windows: the main window, its children as sub-windows, dialogs by themselves.
class QtDesktop : public Desktop {
  public:
    QtDesktop();
    ~QtDesktop() override;

    /// The content of a screen's window.
    using LayoutOf = QWidget* (*)(Screen&);

    /// The screens that are shown, and what their windows hold; to be told once, before the first is.
    void serve(Screens& screens, LayoutOf layoutOf);

    void show(Screen& screen) override;
    void showModally(Screen& screen) override;
    void bringToFront(Screen& screen) override;
    void close(Screen& screen) override;
    void dropClosed() override;
    Answer messageBox(const Message& message) override;
    std::optional<Colour> chooseColour(Colour present) override;
    std::optional<std::string> chooseFile(const FileQuestion& question) override;
    double textWidth(const Screen& screen, std::string_view text) override;
    std::string shortDate(const DateTime& day) override;
    std::optional<Picture> loadPicture(std::string_view path) override;
    void setBusy(bool busy) override;
    void notify(std::string_view text) override;
    bool showProgress(std::string_view what, long done, long total, Stopping stopping) override;
    void letEventsRun() override;
    void awaitEvents() override;
    [[noreturn]] void endProcess() override;

  private:
    QWidget* windowOf(Screen& screen);
    QWidget* makeWindow(Screen& screen);
    /// Where the window of a modal screen comes up.
    QPoint placeOf(const Screen& screen, const QWidget& window) const;
    void dropLater();

    Screens* screens_ = nullptr;
    LayoutOf layoutOf_ = nullptr;
    MainWindowView* main_ = nullptr;
    std::map<Screen*, QWidget*> windows_;
    std::vector<QPointer<QWidget>> closed_;  ///< a main window takes its children with it
    QObject alive_;                          ///< what is put off for later is dropped with it
    std::unique_ptr<QProgressDialog> progress_;
    TextWidths widths_;
};

}  // namespace desk::desktop
