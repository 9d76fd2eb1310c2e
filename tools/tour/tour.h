#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "tour/person.h"

namespace desk::tour {

/// A list of steps that a person takes, one after the other while the program runs, with a numbered picture
/// of the screen after each. A step may open a box and so not return before later steps have answered it.
class Tour : public QObject {
  public:
    /// `pictures` is the folder for the pictures; it is made.
    explicit Tour(QString pictures);

    /// Does something and takes a picture with that title.
    void step(QString title, std::function<void(Person&)> action);
    /// Does something without a picture of its own.
    void then(std::function<void(Person&)> action);
    /// As then(); fails the tour when `holds` is false.
    void check(QString what, std::function<bool()> holds);
    /// Goes on when a box is up, however long that takes.
    void awaitBox();
    /// Answers the box that is up with that button, and checks its text.
    void answer(QString expectedText, QString buttonText);

    /// Starts taking steps; the process ends after the last, with exit code 0, or with 1 after the first that
    /// failed.
    void start();

    std::function<void()> atEnd;  ///< done before the process ends, however the tour went

  private:
    void takeNext();
    void takePicture(const QString& title);
    [[noreturn]] void finish(int exitCode, const QString& lastWord);

    QString pictures_;
    std::vector<std::function<void(Person&)>> steps_;
    std::size_t next_ = 0;
    int pictureCount_ = 0;
    Person person_;
};

}  // namespace desk::tour
