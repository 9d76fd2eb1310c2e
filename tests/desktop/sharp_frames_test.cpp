#include "desktop/sharp_frames.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QProxyStyle>

#include "desktop/form.h"
#include "desktop/person.h"

namespace desk::desktop {
namespace {

/// Whether a line darker than the ground of the list goes along all its edges.
bool isFramed(QWidget& list, double scale) {
    QImage picture(list.size() * scale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::white);
    list.render(&picture);
    const int right = picture.width() - 1;
    const int bottom = picture.height() - 1;
    const auto isLine = [&](int x, int y, int dx, int dy) {
        const auto darkness = [&](int step) {
            return 255 - qGray(picture.pixel(x + step * dx, y + step * dy));
        };
        return std::max({darkness(0), darkness(1), darkness(2)}) > 40;
    };
    return isLine(0, bottom / 2, 1, 0) && isLine(right, bottom / 2, -1, 0) && isLine(right / 2, 0, 0, 1) &&
           isLine(right / 2, bottom, 0, -1);
}

TEST(SharpFrames, FrameAListAtAnyScale) {
    Form form;
    const std::unique_ptr<QProxyStyle> style(sharpFrames());
    const Person person(shown({&form.list}));
    QWidget& list = person.at(form.list);
    list.setStyle(style.get());
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) EXPECT_TRUE(isFramed(list, scale)) << scale;
    list.setStyle(nullptr);
}

}  // namespace
}  // namespace desk::desktop
