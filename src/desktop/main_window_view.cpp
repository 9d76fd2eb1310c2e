#include "desktop/main_window_view.h"

#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QStatusBar>
#include <QVBoxLayout>

#include "desktop/binding.h"
#include "desktop/canvas_binding.h"
#include "desktop/mnemonics.h"
#include "desktop/screen_windows.h"

namespace desk::desktop {

namespace {

constexpr int bannerHeight = 54;

/// The area behind the children, with the main window's background on it.
class Area : public QMdiArea {
  public:
    explicit Area(MDIForm1& screen) : screen_(screen) {
        setBackground(QColor(214, 224, 234));
        setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        follow(this, screen.backgroundChanged, [this] {
            const QImage image = imageOf(screen_.background());
            setBackground(image.isNull() ? QBrush(QColor(214, 224, 234)) : QBrush(image.copy()));
        });
    }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QMdiArea::resizeEvent(event);
        enter([this] { screen_.setSize(twips(width()), twips(height())); });
    }

  private:
    MDIForm1& screen_;
};

}  // namespace

MainWindowView::MainWindowView(MDIForm1& screen) : screen_(screen), area_(new Area(screen)) {
    setObjectName(text(screen.name()));
    setWindowTitle(text(screen.caption()));
    fillMenuBar();
    runTimers(screen, this);
    auto* whole = new QWidget;
    auto* box = new QVBoxLayout(whole);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(0);
    QWidget* banner = widgetFor(screen.Picture1);
    banner->setFixedHeight(bannerHeight);
    box->addWidget(banner);
    box->addWidget(area_, 1);
    setCentralWidget(whole);
    statusBar()->addPermanentWidget(widgetFor(screen.状态栏));
    // F10 opens the menu also where the toolkit leaves that to the system.
    auto* menuKey = new QShortcut(Qt::Key_F10, this);
    connect(menuKey, &QShortcut::activated, this, [this] { openMenu(); });
    resize(pixels(screen.width()), pixels(screen.height()));
}

void MainWindowView::openMenu() {
    for (QAction* entry : menuBar()->actions()) {
        if (!entry->isEnabled() || !entry->isVisible()) continue;
        menuBar()->setFocus(Qt::MenuBarFocusReason);
        return menuBar()->setActiveAction(entry);
    }
}

void MainWindowView::notify(const QString& text) {
    constexpr int longEnoughToRead = 8000;  // ms
    statusBar()->showMessage(text, longEnoughToRead);
}

void MainWindowView::fillMenuBar() {
    for (const MenuEntry& each : screen_.entries()) {
        if (each.parent() != nullptr) continue;
        auto& top = const_cast<MenuEntry&>(each);
        const auto shown = [](QAction* action, MenuEntry& entry) {
            const auto apply = [action, &entry] {
                action->setEnabled(entry.enabled());
                action->setVisible(entry.visible());
            };
            apply();
            follow(action, entry.touched, apply);
            QObject::connect(action, &QAction::triggered, action,
                             [&entry] { enter([&] { entry.click(); }); });
        };
        if (top.entries().empty()) {
            shown(menuBar()->addAction(withMnemonic(text(top.caption()))), top);
            continue;
        }
        QMenu* menu = menuBar()->addMenu(withMnemonic(text(top.caption())));
        shown(menu->menuAction(), top);
        for (MenuEntry* entry : top.entries()) {
            if (entry->isSeparator())
                menu->addSeparator();
            else
                shown(menu->addAction(withMnemonic(text(entry->caption()))), *entry);
        }
    }
}

void MainWindowView::closeEvent(QCloseEvent* event) {
    event->ignore();
    enter([this] { screen_.unload(); });
}

}  // namespace desk::desktop
