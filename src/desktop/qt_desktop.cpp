#include "desktop/qt_desktop.h"

#include <QApplication>
#include <QColorDialog>
#include <QEventLoop>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImageReader>
#include <QLocale>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "base/failure.h"
#include "desktop/binding.h"
#include "desktop/busy.h"
#include "desktop/canvas_binding.h"
#include "desktop/main_window_view.h"
#include "desktop/screen_windows.h"
#include "desktop/window_change.h"

namespace desk::desktop {

QtDesktop::QtDesktop() {
    edge().afterwards([this] { dropLater(); });
}

QtDesktop::~QtDesktop() {
    edge().afterwards({});
    dropClosed();
    // The children first: the main window would take them with it.
    for (const auto& [screen, window] : windows_)
        if (window != main_) delete window;
    delete main_;
}

void QtDesktop::serve(Screens& screens, LayoutOf layoutOf) {
    screens_ = &screens;
    layoutOf_ = layoutOf;
}

QWidget* QtDesktop::windowOf(Screen& screen) {
    const auto found = windows_.find(&screen);
    return found == windows_.end() ? nullptr : found->second;
}

QWidget* QtDesktop::makeWindow(Screen& screen) {
    if (screen.kind() == WindowKind::main) return main_ = new MainWindowView(static_cast<MDIForm1&>(screen));
    if (screen.kind() == WindowKind::child && main_ != nullptr)
        return new ChildWindow(*screens_, screen, layoutOf_(screen), main_->area());
    return new DialogWindow(*screens_, screen, layoutOf_(screen));
}

void QtDesktop::show(Screen& screen) {
    if (windowOf(screen) != nullptr) return;
    std::optional<Hourglass> busy;
    // Before the first window nobody sees it.
    if (!windows_.empty()) busy.emplace(*this);
    const WindowChange change;
    QWidget* window = windows_[&screen] = makeWindow(screen);
    if (window == main_)
        window->showMaximized();
    else
        window->show();
}

void QtDesktop::showModally(Screen& screen) {
    if (windowOf(screen) != nullptr) throw RuntimeFailure(400, "窗体已显示；不能显示为模态");
    if (!screen.isThere()) return;
    const Asking asking;
    QWidget* window = windows_[&screen] = new DialogWindow(*screens_, screen, layoutOf_(screen));
    window->setWindowModality(Qt::ApplicationModal);
    if (main_ != nullptr) window->move(placeOf(screen, *window));
    QEventLoop waiting;
    follow(&waiting, screen.gone, [&waiting] { waiting.quit(); });
    window->show();
    bringToFront(screen);
    if (screen.isThere()) waiting.exec();
    // Another program may have come in front meanwhile, and would stay there.
    if (main_ != nullptr && QApplication::activeModalWidget() == nullptr) {
        main_->raise();
        main_->activateWindow();
    }
}

QPoint QtDesktop::placeOf(const Screen& screen, const QWidget& window) const {
    if (screen.left() != 0 || screen.top() != 0)
        return main_->mapToGlobal(QPoint(pixels(screen.left()), pixels(screen.top())));
    // Amid the main window; its title bar stays on the display also where there is no room around.
    QRect place(QPoint(), window.size() + QSize(0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight)));
    place.moveCenter(main_->geometry().center());
    const QPoint corner = main_->screen()->availableGeometry().topLeft();
    return {std::max(place.left(), corner.x()), std::max(place.top(), corner.y())};
}

void QtDesktop::bringToFront(Screen& screen) {
    QWidget* window = windowOf(screen);
    if (window == nullptr) return;
    if (auto* child = dynamic_cast<ChildWindow*>(window)) {
        child->bringToFront();
        return;
    }
    if (window->isMinimized()) window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
    screens_->activated(screen);
}

void QtDesktop::close(Screen& screen) {
    const auto found = windows_.find(&screen);
    if (found == windows_.end()) return;
    QWidget* window = found->second;
    windows_.erase(found);
    if (window == main_) main_ = nullptr;
    window->hide();
    // One of its own handlers may be running: it goes when none does.
    closed_.push_back(window);
}

void QtDesktop::dropLater() {
    // Not at once: Qt may still be inside an event of a window that has been closed by it.
    if (!closed_.empty() || (screens_ != nullptr && screens_->hasUnloaded()))
        QTimer::singleShot(0, &alive_, [this] {
            if (edge().isInside()) return;
            dropClosed();
            screens_->dropUnloaded();
        });
}

void QtDesktop::dropClosed() {
    for (const auto& window : std::exchange(closed_, {})) delete window;
}

Answer QtDesktop::messageBox(const Message& message) {
    const Asking asking;
    // While another program is in front, no window of ours is the active one.
    QWidget* active = QApplication::activeWindow();
    QMessageBox box(active != nullptr ? active : QApplication::activeModalWidget());
    box.setWindowTitle(message.title.empty() ? QString(模块名) : text(message.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(text(message.text));
    switch (message.icon) {
        case Icon::information:
            box.setIcon(QMessageBox::Information);
            break;
        case Icon::question:
            box.setIcon(QMessageBox::Question);
            break;
        case Icon::warning:
            box.setIcon(QMessageBox::Warning);
            break;
        case Icon::none:
            break;
    }
    if (message.buttons == Buttons::ok) {
        box.setDefaultButton(box.addButton("确定", QMessageBox::AcceptRole));
        box.exec();
        return Answer::ok;
    }
    auto* yes = box.addButton("是(&Y)", QMessageBox::YesRole);
    auto* no = box.addButton("否(&N)", QMessageBox::NoRole);
    box.setDefaultButton(message.preferred == Answer::no ? no : yes);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes ? Answer::yes : Answer::no;
}

std::optional<Colour> QtDesktop::chooseColour(Colour present) {
    const Asking asking;
    const QColor chosen = QColorDialog::getColor(colour(present), QApplication::activeWindow(), "颜色");
    if (!chosen.isValid()) return std::nullopt;
    return packed(chosen);
}

std::optional<std::string> QtDesktop::chooseFile(const FileQuestion& question) {
    QStringList filters;
    const QStringList parts = text(question.filter).split('|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) filters << parts[i] + " (" + parts[i + 1] + ")";
    const bool saves = question.purpose == FilePurpose::save;
    const Asking asking;
    QFileDialog dialog(QApplication::activeWindow(), saves ? "保存" : "打开", text(question.directory));
    dialog.setNameFilters(filters);
    dialog.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // What is in a file that is there already is kept.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.selectFile(text(question.proposal));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return utf8(dialog.selectedFiles().front());
}

double QtDesktop::textWidth(const Screen& screen, std::string_view shown) {
    QWidget* window = windowOf(const_cast<Screen&>(screen));
    const QFont font = window != nullptr ? window->font() : QApplication::font();
    return widths_.of(font, shown);
}

std::string QtDesktop::shortDate(const DateTime& day) {
    // A format of two-digit years could not be read back.
    QString format = QLocale::system().dateFormat(QLocale::ShortFormat);
    if (!format.contains("yyyy")) format.replace("yy", "yyyy");
    const std::string shown = utf8(QLocale::system().toString(date(day), format));
    const auto again = parseDate(shown);
    return again && *again == day.dayOnly() ? shown : formatDate(day, "YYYY/M/D");
}

std::optional<Picture> QtDesktop::loadPicture(std::string_view path) {
    const QImage image = QImageReader(text(path)).read();
    if (image.isNull()) return std::nullopt;
    return pictureOf(image);
}

void QtDesktop::setBusy(bool busy) {
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void QtDesktop::notify(std::string_view shown) {
    if (main_ != nullptr) main_->notify(text(shown));
}

bool QtDesktop::showProgress(std::string_view what, long done, long total, Stopping stopping) {
    if (total == 0) {
        progress_.reset();
        return true;
    }
    if (!progress_) {
        progress_ = std::make_unique<QProgressDialog>(QApplication::activeWindow());
        progress_->setWindowTitle(模块名);
        progress_->setWindowModality(Qt::ApplicationModal);
        if (stopping == Stopping::possible)
            progress_->setCancelButtonText("取消");
        else
            progress_->setCancelButton(nullptr);
        progress_->setMinimumDuration(400);
        progress_->setAutoReset(false);
        progress_->setAutoClose(false);
        // From here on Qt counts that time: without a first step it waits for four seconds.
        progress_->setValue(0);
    }
    progress_->setLabelText(text(what));
    progress_->setMaximum(static_cast<int>(total));
    progress_->setValue(static_cast<int>(done));
    return stopping == Stopping::impossible || !progress_->wasCanceled();
}

void QtDesktop::letEventsRun() {
    QApplication::processEvents();
}

void QtDesktop::awaitEvents() {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void QtDesktop::endProcess() {
    std::fflush(nullptr);
    // At once, with nothing asked and nothing saved: what is in the database is there already.
    std::_Exit(0);
}

}  // namespace desk::desktop
