#include "tax-program/program.h"

#include <QApplication>
#include <QTimer>

namespace desk::tax {

namespace {

void bringUp(QWidget& window) {
    window.showNormal();
    window.raise();
    window.activateWindow();
}

}  // namespace

void Program::start() {
    login = std::make_unique<LoginWindow>(device.options());
    login->loggedIn = [this] {
        main = std::make_unique<MainWindow>(device);
        bringUp(*main);
        login->hide();
    };
    QTimer::singleShot(device.options().slow, login.get(), [this] { bringUp(*login); });
}

}  // namespace desk::tax
