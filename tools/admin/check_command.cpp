#include "admin/check_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "admin/arguments.h"
#include "admin/settings_command.h"
#include "base/failure.h"
#include "base/text.h"
#include "db/connection_string.h"
#include "db/recordset.h"
#include "platform/settings.h"
#include "schema/catalogue.h"

namespace desk::admin {

namespace {

constexpr std::chrono::seconds timeout{30};

/// What a table that can be read lacks, or has of another kind.
std::vector<Difference> comparedBy(Connection& connection, const schema::Table& table) {
    std::vector<std::string> there;
    {
        const Recordset rows(connection, fmt::format("Select * From [{}] Where 1=0", table.name));
        for (int i = 0; i < rows.columnCount(); ++i) there.push_back(rows.columnName(i));
    }
    std::vector<Difference> found;
    for (const auto& column : table.columns)
        if (std::none_of(there.begin(), there.end(),
                         [&](const auto& name) { return schema::sameName(name, column.name); }))
            found.push_back({fmt::format("表 {} 缺少列 {}", table.name, column.name), true});
    for (auto& each : connection.differencesOf(table)) found.push_back(std::move(each));
    return found;
}

std::vector<Difference> differencesIn(Connection& connection, const schema::Table& table) {
    try {
        return comparedBy(connection, table);
    } catch (const RuntimeFailure& failure) {
        if (failure.number() == failure::unknownTable) return {{fmt::format("缺少表 {}", table.name), true}};
        return {{fmt::format("表 {} 不能读取：{}", table.name, failure.description()), true}};
    }
}

/// Prints the harmful ones first; gives how many these are.
std::size_t print(std::vector<Difference> differences) {
    const auto harmless = std::stable_partition(differences.begin(), differences.end(),
                                                [](const auto& d) { return d.harmful; });
    for (const auto& each : differences)
        fmt::print("  {}：{}\n", each.harmful ? "须改正" : "不妨碍", each.text);
    return static_cast<std::size_t>(harmless - differences.begin());
}

}  // namespace

void check(const std::vector<std::string>& words) {
    const Arguments arguments(words, {"folder"}, 0, "");
    const IniSettings store(arguments.option("folder", IniSettings::userFolder()));
    const auto setting = [&](const char* key) {
        return store.read(settingsApplication, settingsSection, key, "");
    };
    if (setting("Svr").empty())
        throw RuntimeFailure(failure::unspecified, "还没有设置数据库，请先用 settings 命令设置");
    Connection connection;
    connection.open(connectionStringOf(setting("UID"), setting("PWD"), setting("DBname"), setting("Svr")),
                    timeout);
    fmt::print("已连接：Svr={} DBname={} UID={}\n", setting("Svr"), setting("DBname"), setting("UID"));
    std::vector<Difference> differences;
    for (const auto& table : schema::tables())
        for (auto& each : differencesIn(connection, table)) differences.push_back(std::move(each));
    if (const auto harmful = print(differences); harmful > 0)
        throw RuntimeFailure(failure::unspecified,
                             fmt::format("数据库与本程序的定义有 {} 处不符，须改正", harmful));
    fmt::print("{} 个表都符合本程序的需要，可以使用\n", schema::tables().size());
}

}  // namespace desk::admin
