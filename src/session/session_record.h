#pragma once

#include <array>
#include <string>

namespace desk {

/// Who works in which position. Always written together, in this order; the command line and the rows of the
/// position list have the same order.
struct SessionRecord {
    std::string 登录工号;
    std::string 登录姓名;
    std::string 登录部门编号;
    std::string 登录部门名称;
    std::string 登录岗位代号;
    std::string 登录岗位名称;
    std::string 登录部门类别代号;
    std::string 登录部门类别名称;
    std::string 登录岗位类别编号;
    std::string 登录岗位类别名称;

    static constexpr std::size_t fieldCount = 10;
    /// The fields in their order.
    std::array<std::string*, fieldCount> fields();

    bool isSuperUser() const { return 登录工号 == superUser; }

    static constexpr const char* superUser = "超级用户";
};

}  // namespace desk
