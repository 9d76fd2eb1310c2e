#pragma once

#include <QColor>
#include <QDate>
#include <QString>
#include <cmath>
#include <string>
#include <string_view>

#include "base/date.h"
#include "ui/colour.h"

namespace desk::desktop {

/// At the usual scale; at others Qt's own pixels stay as large on paper.
inline constexpr double twipsPerPixel = 15;

inline int pixels(double twips) {
    return static_cast<int>(std::lround(twips / twipsPerPixel));
}
inline double twips(double pixels) {
    return pixels * twipsPerPixel;
}

inline QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string utf8(const QString& text) {
    return text.toStdString();
}

/// For places that show one line: what stands on several follows on it.
inline QString onOneLine(std::string_view utf8) {
    QString line = text(utf8);
    line.replace("\r\n", " ");
    for (const char16_t breaks : {u'\n', u'\r', u'\t', u'\u2028', u'\u2029'})
        line.replace(QChar(breaks), ' ');
    return line;
}

inline QColor colour(Colour packed) {
    return QColor(redOf(packed), greenOf(packed), blueOf(packed));
}
inline Colour packed(const QColor& colour) {
    return rgb(colour.red(), colour.green(), colour.blue());
}

inline QDate date(const DateTime& moment) {
    return QDate(static_cast<int>(moment.day.year()),
                 static_cast<int>(static_cast<unsigned>(moment.day.month())),
                 static_cast<int>(static_cast<unsigned>(moment.day.day())));
}
inline DateTime moment(const QDate& day) {
    return DateTime(day.year(), static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
}

}  // namespace desk::desktop
