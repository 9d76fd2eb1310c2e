#include "desktop/edge.h"

#include <QApplication>
#include <QMessageBox>
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
    ++depth_;
    try {
        handler();
    } catch (const RuntimeFailure& failure) {
        endWith(QString("运行时错误 '%1'").arg(failure.number()), text(failure.description()));
    } catch (const std::exception& failure) {
        endWith("运行时错误", failure.what());
    }
    if (--depth_ == 0 && cleaning_) cleaning_();
}

Edge& edge() {
    static Edge only;
    return only;
}

}  // namespace desk::desktop
