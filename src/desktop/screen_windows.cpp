#include "desktop/screen_windows.h"

#include <QCloseEvent>
#include <QScopedValueRollback>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/binding.h"
#include "ui/fields.h"

namespace desk::desktop {

namespace {

/// A person closes the window: the screen may say what happens, and is unloaded.
void closeByPerson(Screens& screens, Screen& screen, QCloseEvent* event) {
    event->ignore();
    enter([&] {
        screen.closeAsked();
        screens.unload(screen);
    });
}

}  // namespace

void runTimers(Screen& screen, QObject* window) {
    for (Control* control : screen.controls()) {
        auto* timer = dynamic_cast<Timer*>(control);
        if (timer == nullptr) continue;
        auto* ticking = new QTimer(window);
        ticking->setInterval(timer->interval());
        QObject::connect(ticking, &QTimer::timeout, ticking, [timer] { enter([&] { timer->tick(); }); });
        const auto follows = [timer, ticking] {
            if (timer->enabled() != ticking->isActive())
                timer->enabled() ? ticking->start() : ticking->stop();
        };
        follows();
        follow(ticking, timer->touched, follows);
    }
}

ChildWindow::ChildWindow(Screens& screens, Screen& screen, QWidget* content, QMdiArea& area)
    : screens_(screens), screen_(screen), area_(area) {
    setObjectName(text(screen.name()));
    setWindowTitle(text(screen.caption()));
    setWidget(content);
    runTimers(screen, this);
    area.addSubWindow(this);
    const int frame = 2 * style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    resize(pixels(screen.width()) + frame, pixels(screen.height()) + frame + title);
    place();
    follow(this, screen.touched, [this] {
        setWindowTitle(text(screen_.caption()));
        place();
    });
    follow(this, screen.maximiseAsked, [this] {
        if (!isMaximized()) showMaximized();
    });
    connect(&area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* active) {
        if (active == this && !activating_) enter([this] { screens_.activated(screen_); });
    });
}

void ChildWindow::place() {
    if (screen_.left() != 0 || screen_.top() != 0) move(pixels(screen_.left()), pixels(screen_.top()));
}

void ChildWindow::bringToFront() {
    const QScopedValueRollback own(activating_, true);
    area_.setActiveSubWindow(this);
    raise();
    screens_.activated(screen_);
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    closeByPerson(screens_, screen_, event);
}

void ChildWindow::resizeEvent(QResizeEvent* event) {
    QMdiSubWindow::resizeEvent(event);
    enter([this] { screen_.setSize(twips(widget()->width()), twips(widget()->height())); });
}

DialogWindow::DialogWindow(Screens& screens, Screen& screen, QWidget* content)
    : screens_(screens), screen_(screen) {
    setObjectName(text(screen.name()));
    setWindowTitle(text(screen.caption()));
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(0, 0, 0, 0);
    box->addWidget(content);
    runTimers(screen, this);
    resize(pixels(screen.width()), pixels(screen.height()));
    follow(this, screen.touched, [this] { setWindowTitle(text(screen_.caption())); });
}

void DialogWindow::closeEvent(QCloseEvent* event) {
    closeByPerson(screens_, screen_, event);
}

}  // namespace desk::desktop
