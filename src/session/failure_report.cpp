#include "session/failure_report.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "session/application.h"

namespace desk {

void reportFailure(Application& app, const RuntimeFailure& failure) {
    app.inform(fmt::format("错误号：{}\r\n错误描述：{}", failure.number(), failure.description()), "提示");
}

}  // namespace desk
