#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <vector>

#include "admin/arguments.h"
#include "admin/check_command.h"
#include "admin/database_commands.h"
#include "admin/script_command.h"
#include "admin/settings_command.h"

namespace {

constexpr const char* help = R"(用法：tenant-desk-admin 命令 [参数]

引驻台账的数据库与设置工具。

命令：
  create FILE             建立空的内置数据库；FILE 已存在时不覆盖
  ddl sqlite|sqlserver    输出全部数据表的定义（SQL）
  sample FILE [选项]      建立带样板数据的新数据库
      --leads N           客户数（缺省 2000）
      --units N           房源单元数（缺省 600）
      --staff N           员工数（缺省 30）
      --years N           客户登记所跨的年数（缺省 2）
      --seed N            随机种子（缺省 1）；种子、数量与日期相同，数据就相同
      --today YYYY-MM-DD  以该日为“今天”（缺省为当天）
  run FILE SCRIPT         在数据库上执行文本文件 SCRIPT 中的语句，一行一条；有一条失败就都不执行
  logins FILE             列出可登录的员工、密码、岗位与可用菜单
  upgrade FILE            把旧程序建立的数据库升级到本程序的版本，补建缺少的表、列和索引；
                          升级前的副本留在 FILE 旁边（登录时也会自动升级）
  backup FILE TO          把数据库复制到新文件 TO；各工作站可以照常使用
  settings                显示程序当前使用的数据库
  settings --file FILE    让程序使用内置数据库 FILE
  settings --server NAME --database NAME [--user 名]
                          让程序使用数据库服务器
      --edition 版本      服务器版本的备注（缺省 2000）
      --folder DIR        设置文件所在的目录（缺省为用户的配置目录）
  check [--folder DIR]    检查设置：能否连接、登录，数据表和列是否齐全，列的类型是否合用

create、sample、run 和 logins 也可用于服务器上的数据库，以下列选项代替 FILE
（create 和 sample 在已有的空数据库中建立全部数据表）：
      --server NAME --database NAME [--user 名]

服务器用户的密码取自环境变量 TENANT_DESK_PASSWORD；没有设置时在终端上询问，输入不显示。
      --password -        密码是标准输入的第一行
      --password 密码     不建议：本机的其他用户在进程列表中看得到它

返回码：0 成功；1 操作失败；2 命令行有误。
)";

using Command = void (*)(const std::vector<std::string>&);

Command commandNamed(const std::string& name) {
    using namespace desk::admin;
    const std::map<std::string, Command> commands = {
        {"create", create}, {"ddl", printDefinition}, {"sample", sample},
        {"run", runScript}, {"logins", printLogins},  {"upgrade", upgrade},
        {"backup", backup}, {"settings", settings},   {"check", check}};
    const auto found = commands.find(name);
    if (found == commands.end()) throw UsageError(fmt::format("不认识的命令“{}”", name));
    return found->second;
}

int run(const std::vector<std::string>& words) {
    for (const auto& word : words)
        if (word == "--help" || word == "-h" || word == "help") {
            fmt::print("{}", help);
            return 0;
        }
    if (words.empty()) throw desk::admin::UsageError("没有指定命令");
    commandNamed(words.front())({words.begin() + 1, words.end()});
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run({argv + 1, argv + argc});
    } catch (const desk::admin::UsageError& error) {
        fmt::print(stderr, "错误：{}。用 --help 查看用法。\n", error.what());
        return 2;
    } catch (const std::exception& error) {
        fmt::print(stderr, "错误：{}\n", error.what());
        return 1;
    }
}
