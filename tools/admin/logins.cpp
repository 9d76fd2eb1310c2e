#include <fmt/format.h>

#include <algorithm>

#include "admin/database_commands.h"
#include "admin/target.h"
#include "base/text.h"
#include "db/recordset.h"
#include "db/statement.h"

namespace desk::admin {

namespace {

struct Position {
    std::string 岗位代号;
    std::string shown;
};

struct Login {
    std::string 工号;
    std::string 姓名;
    std::string 帐号密码;
};

/// `text` filled up to `width` columns of a terminal, where a Han character takes two.
std::string padded(const std::string& text, std::size_t width) {
    const std::size_t characters = characterCount(text);
    const std::size_t wide = (text.size() - characters) / 2;
    const std::size_t columns = characters + wide;
    return text + std::string(columns < width ? width - columns : 1, ' ');
}

std::vector<Login> peopleInService(Connection& connection) {
    std::vector<Login> people;
    for (auto& row :
         Recordset(connection,
                   "Select 工号,姓名,帐号密码 From 员工档案 Where 离职日期 is Null Order by len(工号),工号"))
        people.push_back({row["工号"].text(), row["姓名"].text(), row["帐号密码"].text()});
    return people;
}

std::vector<Position> positionsOf(Connection& connection, const std::string& 工号) {
    std::vector<Position> positions;
    for (auto& row : Recordset(
             connection, sql("Select 岗位信息new.岗位代号,岗位信息new.岗位名称,职能部门new.职能部门名称,"
                             "岗位员工new.主要岗位 From 岗位员工new Inner Join 岗位信息new On "
                             "岗位员工new.岗位代号=岗位信息new.岗位代号 Inner Join 职能部门new On "
                             "岗位信息new.职能部门代号=职能部门new.职能部门编号 Where "
                             "岗位员工new.员工代号='{}' And 岗位员工new.离岗日期 is Null",
                             工号)))
        positions.push_back({row["岗位代号"].text(),
                             fmt::format("{} {}({})", row["职能部门名称"].text(), row["岗位名称"].text(),
                                         row["主要岗位"].flag() ? "主要" : "兼职")});
    return positions;
}

/// The menu entries that the position can use.
std::string menusOf(Connection& connection, const std::string& 岗位代号) {
    std::vector<std::string> entries;
    for (auto& row : Recordset(
             connection, sql("Select GroupPrivilege.FormName From 岗位权限设置 Inner Join GroupPrivilege On "
                             "岗位权限设置.组代号=GroupPrivilege.GroupID Where 授权=1 And Popedom=1 And "
                             "岗位代号='{}' And memo='引驻台账'",
                             岗位代号)))
        // Several groups may grant the same entry.
        if (const auto entry = row["FormName"].text();
            std::find(entries.begin(), entries.end(), entry) == entries.end())
            entries.push_back(entry);
    return join(entries, "、");
}

}  // namespace

void printLogins(const std::vector<std::string>& words) {
    Connection connection = Target(words, {}, 0, "").open();
    fmt::print("{}{}{}{}\n", padded("工号", 8), padded("密码", 12), padded("姓名", 10), "岗位（可用菜单）");
    for (const Login& login : peopleInService(connection)) {
        fmt::print("{}{}{}", padded(login.工号, 8), padded(login.帐号密码, 12), padded(login.姓名, 10));
        const auto positions = positionsOf(connection, login.工号);
        if (positions.empty()) fmt::print("（没有岗位，不能登录）\n");
        for (std::size_t i = 0; i < positions.size(); ++i)
            fmt::print("{}{}：{}\n", i == 0 ? "" : std::string(30, ' '), positions[i].shown,
                       menusOf(connection, positions[i].岗位代号));
    }
}

}  // namespace desk::admin
