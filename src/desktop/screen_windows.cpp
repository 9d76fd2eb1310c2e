#include "desktop/screen_windows.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollArea>
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

/// The content, which keeps the size that it needs where its window is smaller.
QWidget* scrollable(QWidget* content) {
    auto* view = new QScrollArea;
    view->setWidget(content);
    view->setWidgetResizable(true);
    view->setFrameShape(QFrame::NoFrame);
    view->setFocusPolicy(Qt::NoFocus);
    return view;
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
            const bool runs = timer->enabled() && timer->screen().isThere();
            if (runs != ticking->isActive()) runs ? ticking->start() : ticking->stop();
        };
        follows();
        follow(ticking, timer->touched, follows);
        follow(ticking, screen.gone, [ticking] { ticking->stop(); });
        follow(ticking, timer->gone, [ticking] { ticking->stop(); });
    }
}

ChildWindow::ChildWindow(Screens& screens, Screen& screen, QWidget* content, QMdiArea& area)
    : screens_(screens), screen_(screen), area_(area) {
    setObjectName(text(screen.name()));
    setWindowTitle(text(screen.caption()));
    setWidget(scrollable(content));
    runTimers(screen, this);
    // Qt looks for a place as soon as it gets the window, and by the size that it has then.
    resize(QSize(pixels(screen.width()), pixels(screen.height())) + frame());
    fit();
    area.addSubWindow(this);
    // Qt would close a child by Ctrl+W, which other programs use inside a text.
    for (QAction* entry : systemMenu()->actions())
        if (!entry->shortcut().isEmpty()) entry->setShortcut(Qt::CTRL | Qt::Key_F4);
    area.viewport()->installEventFilter(this);
    place();
    follow(this, screen.touched, [this] {
        setWindowTitle(text(screen_.caption()));
        place();
    });
    follow(this, screen.maximiseAsked, [this] {
        if (!isMaximized()) showMaximized();
    });
    follow(this, screen.restoreAsked, [this] {
        if (isMaximized() || isMinimized()) showNormal();
    });
    connect(this, &QMdiSubWindow::aboutToActivate, &listening_, [this] {
        // A click on a field of a window at the back leads there.
        if (QWidget* clicked = QApplication::focusWidget(); holds(clicked)) field_ = clicked;
        change_.emplace();
        QTimer::singleShot(0, &listening_, [this] { change_.reset(); });
    });
    connect(&area, &QMdiArea::subWindowActivated, &listening_, [this](QMdiSubWindow* active) {
        if (active != this || activating_) return;
        enter([this] { screens_.activated(screen_); });
        if (screen_.isThere()) restoreFocus();
        change_.reset();
    });
    connect(qApp, &QApplication::focusChanged, &listening_,
            [this](QWidget* before, QWidget* now) { keepFocus(before, now); });
}

/// What title and borders add.
QSize ChildWindow::frame() const {
    const int borders = 2 * style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    return QSize(borders, borders + style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

void ChildWindow::fit() {
    if (!isMaximized() && !isMinimized()) resize(size().boundedTo(area_.viewport()->size()));
}

/// The screen reckons with the room inside: what its frame adds lies half on each side.
void ChildWindow::place() {
    if ((screen_.left() == 0 && screen_.top() == 0) || isMaximized()) return;
    const QSize room = area_.viewport()->size() - size();
    const QSize half = frame() / 2;
    move(std::clamp(pixels(screen_.left()) - half.width(), 0, std::max(room.width(), 0)),
         std::clamp(pixels(screen_.top()) - half.height(), 0, std::max(room.height(), 0)));
}

/// Where windows come and go, Qt moves the focus on: it leaves a field that is about to be hidden for the
/// next one.
void ChildWindow::keepFocus(const QWidget* before, QWidget* now) {
    if (holds(now) && !WindowChange::runs() && (!holds(before) || before->isVisible())) field_ = now;
}

void ChildWindow::restoreFocus() {
    const WindowChange change;
    if (field_ && field_->isVisible() && field_->isEnabled())
        field_->setFocus(Qt::ActiveWindowFocusReason);
    else if (!holds(QApplication::focusWidget()))
        focusFirst();
    if (QWidget* now = QApplication::focusWidget(); !field_ && holds(now)) field_ = now;
}

/// Qt gives the focus to the first field of all, also where that one is hidden: then nobody has it, and Tab
/// leads into the window behind.
void ChildWindow::focusFirst() {
    for (QWidget* each = nextInFocusChain(); each != this; each = each->nextInFocusChain())
        if (holds(each) && each->isVisible() && each->isEnabled() &&
            (each->focusPolicy() & Qt::TabFocus) != 0)
            return each->setFocus(Qt::ActiveWindowFocusReason);
}

void ChildWindow::bringToFront() {
    const QScopedValueRollback own(activating_, true);
    const WindowChange change;
    const bool isLarge = shown_ && isMaximized();
    shown_ = true;
    if (isMinimized()) showNormal();
    area_.setActiveSubWindow(this);
    raise();
    // Qt makes it as large as a maximised one that it comes before, which goes back to its own size.
    if (isMaximized() && !isLarge) showNormal();
    screens_.activated(screen_);
    if (screen_.isThere()) restoreFocus();
    change_.reset();
}

bool ChildWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == area_.viewport() && event->type() == QEvent::Resize) fit();
    return QMdiSubWindow::eventFilter(watched, event);
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
    box->addWidget(scrollable(content));
    runTimers(screen, this);
    const QSize title(0, style()->pixelMetric(QStyle::PM_TitleBarHeight));
    resize(QSize(pixels(screen.width()), pixels(screen.height()))
               .boundedTo(QWidget::screen()->availableSize() - title));
    follow(this, screen.touched, [this] { setWindowTitle(text(screen_.caption())); });
}

void DialogWindow::closeEvent(QCloseEvent* event) {
    closeByPerson(screens_, screen_, event);
}

}  // namespace desk::desktop
