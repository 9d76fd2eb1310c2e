#pragma once

#include <string_view>

namespace desk {

class Application;

/// Replaces `主连接` by a new connection to the server's database. On failure shows what is wrong and gives
/// false.
bool 连接数据库(Application& app, std::string_view UID, std::string_view PWD, std::string_view DBname,
                std::string_view Svr);

}  // namespace desk
