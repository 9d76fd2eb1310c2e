#include "desktop/view_clicks.h"

#include <QMouseEvent>

namespace desk::desktop {

namespace {

class LeftClicks : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
                return static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton;
            case QEvent::MouseMove:
                return static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton;
            default:
                return false;
        }
    }
};

}  // namespace

void clickByLeftButtonOnly(QAbstractItemView* view) {
    view->viewport()->installEventFilter(new LeftClicks(view));
}

void goNowhereByFocus(QAbstractItemView* view) {
    QItemSelectionModel* marks = view->selectionModel();
    if (marks != nullptr && !marks->hasSelection())
        marks->setCurrentIndex(QModelIndex(), QItemSelectionModel::NoUpdate);
}

}  // namespace desk::desktop
