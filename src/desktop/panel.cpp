#include "desktop/panel.h"

#include <QApplication>
#include <QFrame>
#include <QPointer>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/binding.h"
#include "desktop/layout.h"

namespace desk::desktop {

namespace {

class PanelWidget : public QFrame {
  public:
    PanelWidget(desk::Panel& panel, QWidget* part) {
        setFrameStyle(QFrame::Panel | QFrame::Raised);
        auto* box = new QVBoxLayout(this);
        box->setContentsMargins(6, 6, 6, 6);
        box->addWidget(panel.caption().empty() ? part : layout::group(panel.caption(), part));
        // Before the rest hears of it, which moves the focus away from what is hidden.
        follow(this, panel.touched, [this, &panel] { panel.isOpen() ? remember() : giveBack(); });
        bindCommon(panel, this);
        auto* escape = new QShortcut(Qt::Key_Escape, this);
        escape->setContext(Qt::WidgetWithChildrenShortcut);
        QObject::connect(escape, &QShortcut::activated, this, [&panel] { enter([&] { panel.escape(); }); });
        follow(escape, panel.gone, [this, escape] {
            escape->setEnabled(false);
            hide();
        });
    }

  protected:
    void showEvent(QShowEvent* event) override {
        QFrame::showEvent(event);
        if (!std::exchange(opening_, false)) return;
        if (QWidget* first = next(this, true)) first->setFocus(Qt::OtherFocusReason);
    }

    /// Tab goes round in the panel.
    bool focusNextPrevChild(bool forward) override {
        QWidget* following = next(focusWidget() != nullptr ? focusWidget() : this, forward);
        if (following != nullptr) following->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }

  private:
    void remember() {
        if (isVisible() || opening_) return;
        opening_ = true;
        before_ = QApplication::focusWidget();
    }

    void giveBack() {
        opening_ = false;
        if (!isVisible() || !isAncestorOf(QApplication::focusWidget())) return;
        if (before_ && before_->isVisible() && before_->isEnabled()) before_->setFocus(Qt::PopupFocusReason);
    }

    /// The field behind, or before, `from` in the order of Tab.
    QWidget* next(QWidget* from, bool forward) {
        QWidget* at = from;
        do {
            at = forward ? at->nextInFocusChain() : at->previousInFocusChain();
            if (isAncestorOf(at) && (at->focusPolicy() & Qt::TabFocus) && at->isVisible() && at->isEnabled())
                return at;
        } while (at != from);
        return nullptr;
    }

    bool opening_ = false;
    QPointer<QWidget> before_;
};

}  // namespace

void panelOver(QWidget* content, Panel& panel, QWidget* part, FloatsAt place) {
    layout::orderTabs(part);
    floatOver(content, panel, new PanelWidget(panel, part), place);
}

}  // namespace desk::desktop
