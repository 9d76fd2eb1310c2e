#include "desktop/qt_clipboard.h"

#include <QClipboard>
#include <QEventLoop>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <QTimer>

#include "desktop/convert.h"
#include "platform/x11/selection.h"

namespace desk::desktop {

namespace {

bool onX11() {
    return QGuiApplication::platformName() == "xcb";
}

}  // namespace

void QtClipboard::clear() {
    if (onX11()) return x11::clearClipboard();
    QGuiApplication::clipboard()->clear();
}

std::string QtClipboard::text() {
    if (!onX11()) return utf8(QGuiApplication::clipboard()->text());
    x11::ClipboardReading reading;
    if (reading.goOn()) return reading.text();
    QEventLoop waiting;
    QSocketNotifier more(reading.connection(), QSocketNotifier::Read);
    QObject::connect(&more, &QSocketNotifier::activated, &waiting, [&] {
        if (reading.goOn()) waiting.quit();
    });
    QTimer::singleShot(patience_, &waiting, &QEventLoop::quit);
    waiting.exec(QEventLoop::ExcludeUserInputEvents);
    return reading.goOn() ? reading.text() : std::string();
}

}  // namespace desk::desktop
