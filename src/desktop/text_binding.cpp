#include "desktop/text_binding.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStyle>
#include <QStyleOptionFrame>

#include "base/text.h"
#include "desktop/binding.h"
#include "desktop/keys.h"
#include "desktop/tip.h"

namespace desk::desktop {

namespace {

/// What cannot be typed in looks like the ground around it, and Tab passes it by.
void showLocked(QWidget* edit, bool locked) {
    edit->setFocusPolicy(locked ? Qt::ClickFocus : Qt::StrongFocus);
    QPalette colours = QApplication::palette(edit);
    if (locked) colours.setBrush(QPalette::Base, colours.brush(QPalette::Window));
    edit->setPalette(colours);
}

/// One line, whatever is pasted. Enter moves on as Tab does, where the box says so.
class LineEdit : public QLineEdit {
  public:
    explicit LineEdit(TextBox& box) : box_(box) {
        if (box.style() == TextStyle::password) {
            setEchoMode(QLineEdit::Password);
            setStyleSheet("lineedit-password-character: 42");  // "*"
        }
        // A flat field keeps the height of its framed neighbours.
        setMinimumHeight(sizeHint().height());
        if (box.style() == TextStyle::line) doubt_ = new QAction(this);
        connect(this, &QLineEdit::textEdited, this,
                [this](const QString& typed) { enter([&] { box_.type(utf8(typed)); }); });
        follow(this, box.touched, [this] { showBox(); });
        follow(this, box.selectAllAsked, [this] { selectAll(); });
        showBox();
    }

  protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::ToolTip || !toolTip().isEmpty()) return QLineEdit::event(event);
        showTip(static_cast<QHelpEvent*>(event)->globalPos(), isCut() ? QLineEdit::text() : QString(), this);
        return true;
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Paste) && !isReadOnly()) {
            pasteLine(QApplication::clipboard()->text());
        } else if (!isEnter(*event)) {
            QLineEdit::keyPressEvent(event);
        } else {
            enter([this] { box_.pressEnter(); });
            if (isBound(this) && box_.enterMovesOn) focusNextChild();
        }
    }

    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        // The screen has selected the text by now where it wants that: the press to come must not undo it.
        keepsSelection_ = event->reason() == Qt::MouseFocusReason && hasSelectedText();
    }
    void mousePressEvent(QMouseEvent* event) override {
        if (!keepsSelection_) QLineEdit::mousePressEvent(event);
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!keepsSelection_) QLineEdit::mouseMoveEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (std::exchange(keepsSelection_, false)) return;
        if (event->button() != Qt::MiddleButton || isReadOnly() ||
            !QApplication::clipboard()->supportsSelection())
            return QLineEdit::mouseReleaseEvent(event);
        deselect();
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
        pasteLine(QApplication::clipboard()->text(QClipboard::Selection));
    }

    void dropEvent(QDropEvent* event) override {
        const QString dropped = event->mimeData()->text();
        if (isReadOnly() || utf8(dropped) == firstLine(utf8(dropped))) return QLineEdit::dropEvent(event);
        deselect();
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
        pasteLine(dropped);
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }

    void inputMethodEvent(QInputMethodEvent* event) override {
        const QString typed = event->commitString();
        if (!typed.contains('\n') && !typed.contains('\r')) return QLineEdit::inputMethodEvent(event);
        QInputMethodEvent line(event->preeditString(), event->attributes());
        line.setCommitString(text(firstLine(utf8(typed))), event->replacementStart(),
                             event->replacementLength());
        QLineEdit::inputMethodEvent(&line);
        event->setAccepted(line.isAccepted());
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        QMenu* menu = createStandardContextMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        if (auto* paste = menu->findChild<QAction*>("edit-paste")) {
            paste->disconnect(this);
            connect(paste, &QAction::triggered, this,
                    [this] { pasteLine(QApplication::clipboard()->text()); });
        }
        menu->popup(event->globalPos());
    }

  private:
    bool isCut() const {
        constexpr int besides = 4;  // that Qt leaves free on both sides
        QStyleOptionFrame frame;
        initStyleOption(&frame);
        const QRect inside = style()->subElementRect(QStyle::SE_LineEditContents, &frame, this);
        const int width = inside.width() - textMargins().left() - textMargins().right() - besides;
        return echoMode() == Normal && fontMetrics().horizontalAdvance(QLineEdit::text()) > width;
    }

    void pasteLine(const QString& pasted) { insert(text(firstLine(utf8(pasted)))); }

    void showBox() {
        const QString shown = desktop::text(box_.text());
        if (QLineEdit::text() != shown) {
            setText(shown);
            setCursorPosition(0);
        }
        if (isReadOnly() != box_.locked()) {
            setReadOnly(box_.locked());
            setFrame(!box_.locked());
            showLocked(this, box_.locked());
        }
        if (doubt_ == nullptr) return;
        const QString doubt = desktop::text(box_.doubt());
        // Looking for the icon in the system's themes is long work, and most fields never show it.
        if (!doubt.isEmpty() && doubt_->icon().isNull())
            doubt_->setIcon(style()->standardIcon(QStyle::SP_MessageBoxWarning));
        // One that is only hidden keeps its room from the text.
        if (doubt.isEmpty())
            removeAction(doubt_);
        else if (!actions().contains(doubt_))
            addAction(doubt_, TrailingPosition);
        doubt_->setToolTip(doubt);
        setToolTip(doubt);
        setAccessibleDescription(doubt);
    }

    static QString text(std::string_view utf8) { return desktop::text(utf8); }

    TextBox& box_;
    QAction* doubt_ = nullptr;     ///< the cue behind a text that is no plain number
    bool keepsSelection_ = false;  ///< from the focus that a press has brought until its release
};

/// The database holds lines ended as its other programs end them.
std::string storedLines(const QString& typed) {
    return utf8(QString(typed).replace('\n', "\r\n"));
}

QString shownLines(const TextBox& box) {
    return text(box.text()).replace("\r\n", "\n");
}

QWidget* paragraphWidget(TextBox& box) {
    auto* edit = new QPlainTextEdit;
    edit->setTabChangesFocus(true);
    const int frame = edit->frameStyle();
    const auto show = [&box, edit, frame] {
        if (edit->toPlainText() != shownLines(box)) edit->setPlainText(shownLines(box));
        if (edit->isReadOnly() == box.locked()) return;
        edit->setReadOnly(box.locked());
        edit->setFrameStyle(box.locked() ? QFrame::NoFrame : frame);
        showLocked(edit, box.locked());
    };
    show();
    follow(edit, box.touched, show);
    follow(edit, box.selectAllAsked, [edit] { edit->selectAll(); });
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [&box, edit] {
        if (edit->toPlainText() != shownLines(box))
            enter([&] { box.type(storedLines(edit->toPlainText())); });
    });
    return edit;
}

}  // namespace

QWidget* textBoxWidget(TextBox& box) {
    return box.style() == TextStyle::paragraph ? paragraphWidget(box) : new LineEdit(box);
}

}  // namespace desk::desktop
