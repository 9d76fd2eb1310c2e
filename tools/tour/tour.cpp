#include "tour/tour.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPixmap>
#include <QProgressDialog>
#include <QScreen>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

namespace desk::tour {

namespace {

/// Long enough for a window to be drawn, short enough for a test.
constexpr int betweenSteps = 60;
constexpr int beforeAPicture = 180;
/// A step that never comes to its end must not hang whoever runs the tour.
constexpr int longestTour = 12 * 60 * 1000;

}  // namespace

Tour::Tour(QString pictures) : pictures_(std::move(pictures)) {
    if (!QDir().mkpath(pictures_)) finish(1, "the folder for the pictures cannot be made: " + pictures_);
}

void Tour::step(QString title, std::function<void(Person&)> action) {
    then(std::move(action));
    steps_.push_back([this, title = std::move(title)](Person&) { takePicture(title); });
}

void Tour::then(std::function<void(Person&)> action) {
    steps_.push_back(std::move(action));
}

void Tour::check(QString what, std::function<bool()> holds) {
    then([this, what = std::move(what), holds = std::move(holds)](Person&) {
        if (!holds()) finish(1, "does not hold: " + what);
    });
}

void Tour::awaitBox() {
    then([this](Person&) {
        if (qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) == nullptr) --next_;
    });
}

void Tour::answer(QString expectedText, QString buttonText) {
    then([this, expected = std::move(expectedText), button = std::move(buttonText)](Person& person) {
        // Pressing the button ends the step that opened the box, so that the text is looked at before.
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || box->text() != expected)
            finish(1, "expected the box “" + expected + "”, found “" + (box ? box->text() : QString()) + "”");
        person.answer(button);
    });
}

void Tour::start() {
    QTimer::singleShot(longestTour, this, [this] { finish(1, "the tour takes too long"); });
    QTimer::singleShot(beforeAPicture, this, [this] { takeNext(); });
}

void Tour::takeNext() {
    // While long work shows how far it is, a person waits.
    const bool works = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget()) != nullptr;
    if (person_.waits() || works) return QTimer::singleShot(betweenSteps, this, [this] { takeNext(); });
    if (next_ == steps_.size()) finish(0, QString("%1 pictures in %2").arg(pictureCount_).arg(pictures_));
    // The timer of the next step is set first: this step may wait for it.
    QTimer::singleShot(next_ + 1 < steps_.size() ? beforeAPicture : betweenSteps, this,
                       [this] { takeNext(); });
    const std::size_t present = next_++;
    try {
        steps_[present](person_);
    } catch (const std::exception& failure) {
        takePicture("failed");
        finish(1, QString("step %1: %2").arg(present + 1).arg(failure.what()));
    }
}

void Tour::takePicture(const QString& title) {
    const QString file =
        QString("%1/%2-%3.png").arg(pictures_).arg(++pictureCount_, 2, 10, QChar('0')).arg(title);
    if (!QApplication::primaryScreen()->grabWindow(0).save(file)) finish(1, "cannot write " + file);
}

void Tour::finish(int exitCode, const QString& lastWord) {
    std::fprintf(exitCode == 0 ? stdout : stderr, "%s\n", qUtf8Printable(lastWord));
    std::fflush(nullptr);
    if (atEnd) atEnd();
    std::_Exit(exitCode);
}

}  // namespace desk::tour
