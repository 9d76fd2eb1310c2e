#include "desktop/marker_binding.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QPainter>

#include "desktop/binding.h"

namespace desk::desktop {

namespace {

/// Dark grounds have white letters.
QColor lettersOn(const QColor& ground) {
    return qGray(ground.rgb()) < 128 ? Qt::white : Qt::black;
}

class MarkerWidget : public QWidget {
  public:
    explicit MarkerWidget(Marker& marker) : marker_(&marker) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        follow(this, marker.gone, [this] { marker_ = nullptr; });
        follow(this, marker.touched, [this] { showText(); });
        showText();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        if (marker_ == nullptr) return;
        QPainter painter(this);
        const QColor ground = colour(marker_->colour());
        painter.setPen(ground.lighter(150));
        painter.setBrush(ground);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        painter.setPen(lettersOn(ground));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, text(marker_->text()));
    }

    /// A press that is let go elsewhere is no click.
    void mousePressEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (marker_ == nullptr || !rect().contains(event->position().toPoint())) return;
        const auto button = event->button() == Qt::LeftButton ? MouseButton::left : MouseButton::other;
        enter([&] { marker_->click(button); });
    }

  private:
    void showText() {
        setAccessibleName(text(marker_->text()));
        update();
    }

    Marker* marker_;  ///< null when it has gone
};

}  // namespace

QWidget* markerWidget(Marker& marker) {
    return new MarkerWidget(marker);
}

void markerOver(QAbstractScrollArea* view, Marker& marker) {
    QWidget* shown = widgetFor(marker);
    // What is a child of the viewport would move along with its cells.
    shown->setParent(view);
    const auto lay = [view, shown, &marker] {
        const Area& area = marker.area();
        // The edges of the cells below are rounded one by one as well.
        const QPoint from(pixels(area.left), pixels(area.top));
        const QPoint to(pixels(area.left + area.width), pixels(area.top + area.height));
        shown->setGeometry(QRect(from, QSize(to.x() - from.x(), to.y() - from.y()))
                               .translated(view->viewport()->geometry().topLeft()));
        shown->raise();
    };
    lay();
    shown->setVisible(marker.visible());
    follow(shown, marker.touched, lay);
}

}  // namespace desk::desktop
