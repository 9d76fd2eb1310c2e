#pragma once

#include <QPainter>
#include <QString>
#include <string_view>

namespace desk::desktop {

/// What the picture of that name says; empty for a name that nobody draws.
QString wordsOfPicture(std::string_view name);

/// Draws the picture of that name into the middle of `cell` in the painter's pen colour, as sharp as the
/// display is. Nothing for a name that nobody draws.
void drawPicture(QPainter& painter, const QRect& cell, std::string_view name);

}  // namespace desk::desktop
