#include "desktop/tip.h"

#include <QToolTip>

namespace desk::desktop {

void showTip(QPoint at, const QString& words, QWidget* of) {
    // As rich text a long one is broken into lines.
    QToolTip::showText(at, words.isEmpty() ? QString() : "<qt>" + words.toHtmlEscaped() + "</qt>", of);
}

}  // namespace desk::desktop
