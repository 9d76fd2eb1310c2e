#include "desktop/edge.h"

#include <QScopedValueRollback>

#include "base/failure.h"
#include "desktop/convert.h"
#include "desktop/ending.h"

namespace desk::desktop {

void Edge::run(const std::function<void()>& handler) {
    runInside(handler);
    if (depth_ == 0 && cleaning_) cleaning_();
}

void Edge::runInside(const std::function<void()>& handler) {
    const QScopedValueRollback inside(depth_, depth_ + 1);
    try {
        handler();
    } catch (const RuntimeFailure& failure) {
        end({QString("运行时错误 '%1'").arg(failure.number()), text(failure.description()),
             text(failure.statement())});
    } catch (const std::exception& failure) {
        end({"运行时错误", failure.what(), {}});
    }
}

void Edge::end(const Ending& ending) {
    // What fails again while the box is up, as a paint does, adds nothing to it.
    if (!std::exchange(ending_, true)) endWith(ending);
}

Edge& edge() {
    static Edge only;
    return only;
}

}  // namespace desk::desktop
