#include "desktop/program.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QImageReader>
#include <QLibraryInfo>
#include <QLocale>
#include <QPixmap>
#include <QProxyStyle>
#include <QScreen>
#include <QTranslator>
#include <algorithm>
#include <cmath>

#include "desktop/screen_list.h"
#include "desktop/sharp_frames.h"
#include "desktop/words.h"

/// The pictures lie in a library, from which nothing is linked that nobody names.
static void linkPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace desk::desktop {

namespace {

/// Read without asking the readers of all other formats, which would be loaded for that.
QIcon icon() {
    QImageReader reader(":/icon.png", "PNG");
    reader.setAutoDetectImageFormat(false);
    return QPixmap::fromImageReader(&reader);
}

bool isBetweenPixels(const QScreen* screen) {
    const double ratio = screen->devicePixelRatio();
    return ratio != std::floor(ratio);
}

}  // namespace

void dress() {
    linkPictures();
    const QList<QScreen*> screens = QApplication::screens();
    if (std::any_of(screens.begin(), screens.end(), isBetweenPixels)) QApplication::setStyle(sharpFrames());
    QApplication::setApplicationName("引驻台账");
    QApplication::setWindowIcon(icon());
    const QLocale chinese(QLocale::Chinese, QLocale::China);
    QLocale::setDefault(chinese);
    // The words of Qt's own dialogs; without the file they stay English.
    auto* words = new QTranslator(qApp);
    if (words->load(chinese, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(words);
    QApplication::installTranslator(new Words(qApp));
    // Without it a system of another language shows Chinese signs in that language's shapes.
    QFont font = QApplication::font();
    font.setFamilies({"Noto Sans CJK SC", "Source Han Sans SC", "WenQuanYi Micro Hei", font.family()});
    QApplication::setFont(font);
}

Program::Program()
    : app(desktop, Platform{clock, settings, files, programs, spreadsheets, keyboard, pointer, clipboard}) {
    desktop.serve(app.screens, layoutOf);
    offerScreens(app);
}

}  // namespace desk::desktop
