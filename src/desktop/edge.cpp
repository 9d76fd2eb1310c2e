#include "desktop/edge.h"

#include <QApplication>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <cstdio>
#include <cstdlib>

#include "base/failure.h"
#include "desktop/convert.h"

namespace desk::desktop {

namespace {

[[noreturn]] void endWith(const QString& title, const QString& description) {
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(title), qUtf8Printable(description));
    std::fflush(nullptr);
    QMessageBox box(QMessageBox::Critical, "引驻台账", title + "\n\n" + description, QMessageBox::NoButton,
                    QApplication::activeWindow());
    box.addButton("确定", QMessageBox::AcceptRole);
    box.exec();
    std::_Exit(1);
}

}  // namespace

void Edge::run(const std::function<void()>& handler) {
    runInside(handler);
    if (depth_ == 0 && cleaning_) cleaning_();
}

void Edge::runInside(const std::function<void()>& handler) {
    const QScopedValueRollback inside(depth_, depth_ + 1);
    try {
        handler();
    } catch (const RuntimeFailure& failure) {
        end(QString("运行时错误 '%1'").arg(failure.number()), text(failure.description()));
    } catch (const std::exception& failure) {
        end("运行时错误", failure.what());
    }
}

void Edge::end(const QString& title, const QString& description) {
    // What fails again while the box is up, as a paint does, adds nothing to it.
    if (!std::exchange(ending_, true)) endWith(title, description);
}

Edge& edge() {
    static Edge only;
    return only;
}

}  // namespace desk::desktop
