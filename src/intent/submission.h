#pragma once

#include <string>
#include <string_view>

namespace desk {

class Application;

/// Sends the letter of that `ID` into the approval path of its office: on a path of many levels its first
/// step is asked, on a path of one level all of them at once. Without a path the person is told, and it gives
/// false.
bool 提交意向书(Application& app, std::string_view 管理处代号, const std::string& 意向书ID);

}  // namespace desk
