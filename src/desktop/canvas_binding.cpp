#include "desktop/canvas_binding.h"

#include <QMouseEvent>
#include <QPainter>
#include <cstring>

#include "desktop/binding.h"

namespace desk::desktop {

QImage imageOf(const Picture& picture) {
    if (picture.empty()) return {};
    return QImage(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                  picture.width * 4, QImage::Format_RGB32);
}

Picture pictureOf(const QImage& image) {
    const QImage plain = image.convertToFormat(QImage::Format_RGB32);
    Picture picture(plain.width(), plain.height());
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(&picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width)],
                    plain.constScanLine(y), static_cast<std::size_t>(picture.width) * 4);
    return picture;
}

namespace {

class CanvasWidget : public QWidget {
  public:
    explicit CanvasWidget(Canvas& canvas) : canvas_(canvas) {
        setMouseTracking(true);
        setAttribute(Qt::WA_OpaquePaintEvent);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        follow(this, canvas.touched, [this] { update(); });
    }

  protected:
    void resizeEvent(QResizeEvent*) override {
        enter(
            [this] { canvas_.resize(twips(width()), twips(height()), devicePixelRatioF() / twipsPerPixel); });
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QImage image = imageOf(canvas_.picture());
        if (image.isNull())
            painter.fillRect(rect(), colour(canvas_.background));
        else
            painter.drawImage(rect(), image);
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        const QPointF at = event->position();
        enter([&] { canvas_.movePointer(twips(at.x()), twips(at.y())); });
    }
    void mousePressEvent(QMouseEvent* event) override {
        const QPointF at = event->position();
        enter([&] { canvas_.press(twips(at.x()), twips(at.y())); });
    }

  private:
    Canvas& canvas_;
};

}  // namespace

QWidget* canvasWidget(Canvas& canvas) {
    return new CanvasWidget(canvas);
}

}  // namespace desk::desktop
