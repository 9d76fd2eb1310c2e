#include <fontconfig/fontconfig.h>

#include <QApplication>
#include <thread>

#include "base/text.h"
#include "desktop/edge.h"
#include "desktop/program.h"

int main(int argc, char** argv) {
    // The system's list of fonts is read while the connection to the display is made: the first text waits
    // for it.
    const std::jthread fonts([] { FcInit(); });
    QApplication application(argc, argv);
    desk::desktop::dress();
    // The session that a launcher hands over may come as several words, where a name in it holds a blank.
    std::vector<std::string> words;
    for (int i = 1; i < argc; ++i) words.emplace_back(argv[i]);
    desk::desktop::Program program;
    desk::desktop::enter([&] { program.app.start(desk::join(words, " ")); });
    return QApplication::exec();
}
