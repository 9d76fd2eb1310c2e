#include "desktop/scroll_bar_binding.h"

#include <QScrollBar>
#include <QSignalBlocker>

#include "desktop/binding.h"

namespace desk::desktop {

QWidget* scrollBarWidget(ScrollBar& bar) {
    auto* shown = new QScrollBar(Qt::Vertical);
    shown->setPageStep(1);
    shown->setFocusPolicy(Qt::TabFocus);
    const auto show = [&bar, shown] {
        const QSignalBlocker quiet(shown);
        shown->setRange(0, bar.last());
        shown->setValue(bar.position());
    };
    show();
    follow(shown, bar.touched, show);
    QObject::connect(shown, &QScrollBar::valueChanged, shown,
                     [&bar](int position) { enter([&] { bar.scrollTo(position); }); });
    return shown;
}

}  // namespace desk::desktop
