#include "session/main_connection.h"

#include "base/failure.h"
#include "db/connection_string.h"
#include "session/application.h"

namespace desk {

bool 连接数据库(Application& app, std::string_view UID, std::string_view PWD, std::string_view DBname,
                std::string_view Svr) {
    constexpr std::chrono::seconds connectionTimeout{30};
    app.连接字符串 = connectionStringOf(UID, PWD, DBname, Svr);
    try {
        app.主连接.open(app.连接字符串, connectionTimeout);
        return true;
    } catch (const RuntimeFailure& failure) {
        app.inform("错误信息：" + failure.description(), "信息文本");
        return false;
    }
}

}  // namespace desk
