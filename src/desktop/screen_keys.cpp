#include "desktop/screen_keys.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPushButton>
#include <QShortcut>

#include "desktop/find_bar.h"

namespace desk::desktop {

namespace {

QPushButton* usableButton(const QWidget* within, const QString& caption) {
    for (QPushButton* button : within->findChildren<QPushButton*>())
        if (button->accessibleName() == caption && button->isVisible() && button->isEnabled()) return button;
    return nullptr;
}

/// Of several buttons of that caption the one nearest to the focus: an open panel has a 确定 of its own.
void press(const QWidget* content, const QString& caption) {
    const QWidget* around = QApplication::focusWidget();
    if (around == nullptr || !content->isAncestorOf(around)) around = content;
    for (; around != nullptr; around = around == content ? nullptr : around->parentWidget())
        if (QPushButton* button = usableButton(around, caption)) return button->click();
}

FindBar* barToUse(const QWidget* content) {
    for (const QWidget* at = QApplication::focusWidget(); at != nullptr && at != content;
         at = at->parentWidget())
        if (auto* view = qobject_cast<const QAbstractItemView*>(at))
            if (FindBar* bar = FindBar::of(view)) return bar;
    for (const QAbstractItemView* view : content->findChildren<QAbstractItemView*>())
        if (FindBar* bar = FindBar::of(view); bar != nullptr && view->isVisible()) return bar;
    return nullptr;
}

template <class Act>
void on(QWidget* content, const QKeySequence& keys, Act act) {
    auto* shortcut = new QShortcut(keys, content);
    QObject::connect(shortcut, &QShortcut::activated, content, act);
}

}  // namespace

void addScreenKeys(QWidget* content) {
    on(content, Qt::CTRL | Qt::Key_S, [content] { press(content, "确定"); });
    on(content, Qt::CTRL | Qt::Key_N, [content] { press(content, "新增"); });
    on(content, Qt::CTRL | Qt::Key_F, [content] {
        if (FindBar* bar = barToUse(content)) bar->open();
    });
    on(content, Qt::Key_F3, [content] {
        if (FindBar* bar = barToUse(content)) bar->goOn(Towards::next);
    });
    on(content, Qt::SHIFT | Qt::Key_F3, [content] {
        if (FindBar* bar = barToUse(content)) bar->goOn(Towards::previous);
    });
}

}  // namespace desk::desktop
