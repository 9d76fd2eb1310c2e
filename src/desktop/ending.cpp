#include "desktop/ending.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <cstdio>
#include <cstdlib>

namespace desk::desktop {

namespace {

/// What a person has put into the field; nothing for a widget of another kind and for a password.
QString contentOf(const QWidget* widget) {
    if (auto* line = qobject_cast<const QLineEdit*>(widget))
        return line->echoMode() == QLineEdit::Normal ? line->text() : QString();
    if (auto* note = qobject_cast<const QPlainTextEdit*>(widget)) return note->toPlainText();
    if (auto* combo = qobject_cast<const QComboBox*>(widget)) return combo->currentText();
    if (auto* day = qobject_cast<const QAbstractSpinBox*>(widget)) return day->text();
    if (auto* list = qobject_cast<const QListWidget*>(widget)) {
        QStringList chosen;
        for (const QListWidgetItem* item : list->selectedItems()) chosen << item->text();
        return chosen.join(",");
    }
    return {};
}

/// The control's own name where its widget has no other: its last part is the one that people know.
QString captionOf(const QWidget* widget) {
    return widget->accessibleName().isEmpty() ? widget->objectName().section('.', -1)
                                              : widget->accessibleName();
}

/// A field of a screen, and no part that a widget of Qt's has inside.
bool isField(const QWidget* widget) {
    return !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
}

const QWidget* windowHolding(const QWidget* widget) {
    for (const QWidget* at = widget; at != nullptr; at = at->parentWidget())
        if (at->isWindow() || qobject_cast<const QMdiSubWindow*>(at) != nullptr) return at;
    return widget;
}

/// The button copies and leaves the box up, since the text must be pasted while the process lives.
void addCopying(QMessageBox& box) {
    QPushButton* copy = box.addButton("复制屏幕内容", QMessageBox::ActionRole);
    QObject::disconnect(copy, &QPushButton::clicked, nullptr, nullptr);
    QObject::connect(copy, &QPushButton::clicked, copy, [copy, &box] {
        QApplication::clipboard()->setText(textsOfShownFields());
        copy->setText("已复制");
        box.setInformativeText("屏幕内容已复制。请先粘贴到别的程序里保存，再按“确定”结束。");
    });
}

}  // namespace

QString textsOfShownFields() {
    QStringList lines;
    for (const QWidget* top : QApplication::topLevelWidgets()) {
        if (!top->isVisible()) continue;
        const QWidget* present = nullptr;
        for (const QWidget* widget : top->findChildren<QWidget*>()) {
            const QString content = contentOf(widget);
            if (content.isEmpty() || !isField(widget)) continue;
            const QWidget* window = windowHolding(widget);
            if (!window->isVisible()) continue;
            if (window != present) lines << "【" + window->windowTitle() + "】";
            present = window;
            lines << captionOf(widget) + "：" + content;
        }
    }
    return lines.join('\n');
}

void endWith(const Ending& ending) {
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(ending.title), qUtf8Printable(ending.description));
    if (!ending.statement.isEmpty()) std::fprintf(stderr, "语句：%s\n", qUtf8Printable(ending.statement));
    std::fflush(nullptr);

    QMessageBox box(QMessageBox::Critical, "引驻台账", ending.title + "\n\n" + ending.description,
                    QMessageBox::NoButton, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText("程序即将结束，尚未保存的内容会丢失。");
    if (!ending.statement.isEmpty()) box.setDetailedText("语句：" + ending.statement);
    QPushButton* end = box.addButton("确定", QMessageBox::AcceptRole);
    box.setDefaultButton(end);
    box.setEscapeButton(end);
    addCopying(box);
    box.exec();
    std::_Exit(1);
}

}  // namespace desk::desktop
