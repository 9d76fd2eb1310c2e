#include "session/main_connection.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "session/application.h"

namespace desk {

bool 连接数据库(Application& app, std::string_view UID, std::string_view PWD, std::string_view DBname,
                std::string_view Svr) {
    constexpr std::chrono::seconds connectionTimeout{30};
    // No statement: here a quote means what it means to the driver.
    app.连接字符串 = fmt::format(
        "Provider=SQLOLEDB.1;Password={};Persist Security Info=False;User ID={};Initial Catalog='{}';Data "
        "Source='{}'",
        PWD, UID, DBname, Svr);
    try {
        app.主连接.open(app.连接字符串, connectionTimeout);
        return true;
    } catch (const RuntimeFailure& failure) {
        app.inform("错误信息：" + failure.description(), "信息文本");
        return false;
    }
}

}  // namespace desk
