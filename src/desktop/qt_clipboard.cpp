#include "desktop/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "desktop/convert.h"

namespace desk::desktop {

void QtClipboard::clear() {
    QGuiApplication::clipboard()->clear();
}

std::string QtClipboard::text() {
    return utf8(QGuiApplication::clipboard()->text());
}

}  // namespace desk::desktop
