#include "desktop/hint.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QLabel>

#include "desktop/binding.h"

namespace desk::desktop {

namespace {

class Hint : public QLabel {
  public:
    Hint(QAbstractItemView* view, const std::string& hint)
        : QLabel(view->viewport()), view_(view), hint_(hint) {
        setObjectName("qt_hint");
        setAlignment(Qt::AlignCenter);
        setWordWrap(true);
        setMargin(6);
        setForegroundRole(QPalette::PlaceholderText);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        connect(view->model(), &QAbstractItemModel::modelReset, this, [this] { showOrHide(); });
        connect(view->model(), &QAbstractItemModel::rowsInserted, this, [this] { showOrHide(); });
        connect(view->model(), &QAbstractItemModel::rowsRemoved, this, [this] { showOrHide(); });
        view->viewport()->installEventFilter(this);
        showOrHide();
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show) showOrHide();
        return false;
    }

  private:
    void showOrHide() {
        if (!isBound(view_)) return;
        const bool isEmpty = view_->model()->rowCount() == 0;
        setText(isEmpty ? desktop::text(hint_) : QString());
        setGeometry(view_->viewport()->rect());
        setVisible(isEmpty && !hint_.empty());
    }

    QAbstractItemView* view_;
    const std::string& hint_;
};

}  // namespace

void showHint(QAbstractItemView* view, const std::string& hint) {
    new Hint(view, hint);
}

}  // namespace desk::desktop
