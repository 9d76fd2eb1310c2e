#include "desktop/floating.h"

#include <QEvent>

#include "desktop/binding.h"

namespace desk::desktop {

namespace {

class Floating : public QObject {
  public:
    Floating(QWidget* content, Control& control, QWidget* part, FloatsAt place)
        : QObject(part), content_(content), control_(control), part_(part), place_(place) {
        part->setParent(content);
        content->installEventFilter(this);
        follow(part, control.touched, [this] { lay(); });
        lay();
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show) lay();
        return false;
    }

  private:
    void lay() {
        part_->setVisible(control_.visible() && control_.anchor() != nullptr);
        if (control_.anchor() == nullptr || !control_.visible()) return;
        const auto* anchor = content_->findChild<QWidget*>(text(control_.anchor()->name()));
        if (anchor == nullptr) return;
        const QRect at(anchor->mapTo(content_, QPoint(0, 0)), anchor->size());
        if (place_ == FloatsAt::rightEdge) {
            const int side = at.height() - 2;
            part_->setGeometry(at.right() - side, at.top() + 1, side, side);
        } else {
            const QSize size = part_->sizeHint().expandedTo(part_->minimumSize());
            const int x = std::clamp(at.left(), 0, std::max(content_->width() - size.width(), 0));
            int y = at.bottom() + 1;
            // Where there is no room below it lies above.
            if (y + size.height() > content_->height()) y = std::max(at.top() - size.height(), 0);
            part_->setGeometry(x, y, size.width(), size.height());
        }
        part_->raise();
    }

    QWidget* content_;
    Control& control_;
    QWidget* part_;
    FloatsAt place_;
};

}  // namespace

void floatOver(QWidget* content, Control& control, QWidget* part, FloatsAt place) {
    part->setAutoFillBackground(true);
    new Floating(content, control, part, place);
}

}  // namespace desk::desktop
