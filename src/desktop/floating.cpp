#include "desktop/floating.h"

#include <QAbstractButton>
#include <QPointer>
#include <QTimer>
#include <utility>

#include "desktop/binding.h"
#include "desktop/cell_place.h"
#include "desktop/keys.h"

namespace desk::desktop {

namespace {

class Floating : public QObject {
  public:
    Floating(QWidget* content, Control& control, QWidget* part, FloatsAt place)
        : QObject(part), content_(content), control_(control), part_(part), place_(place) {
        part->setParent(content);
        content->installEventFilter(this);
        follow(part, control.touched, [this] { lay(); });
        follow(part, control.gone, [this] { content_->removeEventFilter(this); });
        lay();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == field_ && event->type() == QEvent::KeyPress)
            return opensByKey(*static_cast<QKeyEvent*>(event));
        if (watched != content_) return false;
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show) lay();
        return false;
    }

  private:
    void lay() {
        if (!isBound(part_)) return;
        const bool needsAnchor = place_ == FloatsAt::rightEdge;
        const bool shown = control_.visible() && (control_.anchor() != nullptr || !needsAnchor) &&
                           (place_ != FloatsAt::beside || rowIsInView());
        part_->setVisible(shown);
        if (shown) part_->setGeometry(geometry());
        part_->raise();
    }

    QRect geometry() {
        switch (place_) {
            case FloatsAt::rightEdge:
                return insideAnchor();
            case FloatsAt::beside:
                if (const QRect at = anchor(); !at.isNull()) return beside(at);
                break;
            case FloatsAt::below:
                break;
        }
        return below();
    }

    /// Of the anchor, in the content; empty where it has none that is shown there.
    QRect anchor() {
        if (control_.anchor() == nullptr) return {};
        auto* at = content_->findChild<QWidget*>(text(control_.anchor()->name()));
        if (at == nullptr) return {};
        const QRect whole(at->mapTo(content_, QPoint(0, 0)), at->size());
        auto* table = qobject_cast<QTableView*>(at);
        if (table == nullptr || !control_.anchorCell()) return whole;
        followCells(table);
        const QRect cell =
            anchorCellIn(*table, control_).translated(table->viewport()->mapTo(content_, QPoint(0, 0)));
        // Beside a cell it would lie over the next one.
        if (place_ == FloatsAt::beside) return QRect(whole.left(), cell.top(), whole.width(), cell.height());
        return cell;
    }

    /// Of the cell, where it lies at one.
    bool rowIsInView() {
        if (!control_.anchorCell()) return true;
        anchor();
        return followed_ != nullptr &&
               anchorCellIn(*followed_, control_).intersects(followed_->viewport()->rect());
    }

    void followCells(QTableView* table) {
        if (std::exchange(followed_, table) != table) whenCellsMove(table, this, [this] { lay(); });
    }

    /// The keys that open a drop-down press the arrow of a field, which no other key reaches from the field.
    bool opensByKey(const QKeyEvent& key) {
        if (!opensDropDown(key) || !part_->isVisible() || !part_->isEnabled()) return false;
        static_cast<QAbstractButton*>(part_)->click();
        return true;
    }

    void listenAt(QWidget* field) {
        if (field == field_) return;
        if (field_) field_->removeEventFilter(this);
        field_ = field;
        // While the field is being told its focus, one listener more would make it tell the others twice.
        QTimer::singleShot(0, this, [this] {
            if (field_) field_->installEventFilter(this);
        });
    }

    QRect insideAnchor() {
        const QRect at = anchor();
        const int height = at.height() - 2;
        const auto* button = qobject_cast<QAbstractButton*>(part_);
        const QString word = button != nullptr ? button->text() : QString();
        if (button != nullptr && word.size() == 1)
            listenAt(content_->findChild<QWidget*>(text(control_.anchor()->name())));
        // An arrow stands in a square, a word needs room.
        const int width =
            word.size() < 2 ? height : button->fontMetrics().horizontalAdvance(word) + height / 2;
        return QRect(at.right() - width, at.top() + 1, width, height);
    }

    QSize size() const {
        return part_->sizeHint().expandedTo(part_->minimumSize()).boundedTo(content_->size());
    }

    QRect beside(const QRect& at) const {
        const QSize size = this->size();
        const bool fitsRight = at.right() + 1 + size.width() <= content_->width();
        const bool fitsDown = at.top() + size.height() <= content_->height();
        return QRect(QPoint(fitsRight ? at.right() + 1 : std::max(at.left() - size.width(), 0),
                            fitsDown ? at.top() : std::max(at.bottom() + 1 - size.height(), 0)),
                     size);
    }

    QRect below() {
        const QRect at = anchor();
        if (at.isNull()) return content_->rect().adjusted(0, content_->height() / 2, 0, 0);
        const QSize size = this->size().expandedTo({std::min(at.width(), content_->width()), 0});
        const int x = std::clamp(at.left(), 0, content_->width() - size.width());
        int y = at.bottom() + 1;
        // Where there is no room below it lies above.
        if (y + size.height() > content_->height()) y = std::max(at.top() - size.height(), 0);
        return QRect(QPoint(x, y), size);
    }

    QWidget* content_;
    Control& control_;
    QWidget* part_;
    FloatsAt place_;
    QPointer<QWidget> field_;         ///< whose arrow it is
    QTableView* followed_ = nullptr;  ///< the grid whose cells it goes along with
};

}  // namespace

void floatOver(QWidget* content, Control& control, QWidget* part, FloatsAt place) {
    part->setAutoFillBackground(true);
    // A click on the button of a field leaves the person in the field.
    if (place == FloatsAt::rightEdge) part->setFocusPolicy(Qt::TabFocus);
    new Floating(content, control, part, place);
}

}  // namespace desk::desktop
