// The least that a Qt program does to have a window: what the start of the program is measured against.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.setWindowTitle("empty");
    window.resize(500, 360);
    window.show();
    return QApplication::exec();
}
