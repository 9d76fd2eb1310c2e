#pragma once

#include <QImage>
#include <QWidget>

#include "ui/canvas.h"

namespace desk::desktop {

/// The pixels of `picture` as Qt paints them, without a copy: valid as long as the picture is.
QImage imageOf(const Picture& picture);
/// A picture of its own with the pixels of `image`.
Picture pictureOf(const QImage& image);

QWidget* canvasWidget(Canvas& canvas);

}  // namespace desk::desktop
