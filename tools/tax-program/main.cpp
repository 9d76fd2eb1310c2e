#include <QApplication>
#include <QTimer>

#include "tax-program/look.h"
#include "tax-program/program.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("tax-program");
    desk::tax::dress();
    desk::tax::Program program(desk::tax::Options::read(QApplication::arguments()));
    program.start();
    return QApplication::exec();
}
