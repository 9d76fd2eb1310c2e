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

/// What a table lacks, in words; nothing when it is as the program needs it.
std::vector<std::string> missingIn(Connection& connection, const schema::Table& table) {
    std::vector<std::string> missing;
    try {
        const Recordset rows(connection, fmt::format("Select * From [{}] Where 1=0", table.name));
        std::vector<std::string> there;
        for (int i = 0; i < rows.columnCount(); ++i) there.push_back(rows.columnName(i));
        for (const auto& column : table.columns)
            if (std::none_of(there.begin(), there.end(),
                             [&](const auto& name) { return schema::sameName(name, column.name); }))
                missing.push_back(fmt::format("表 {} 缺少列 {}", table.name, column.name));
    } catch (const RuntimeFailure& failure) {
        if (failure.number() == failure::unknownTable)
            missing.push_back(fmt::format("缺少表 {}", table.name));
        else
            missing.push_back(fmt::format("表 {} 不能读取：{}", table.name, failure.description()));
    }
    return missing;
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
    std::vector<std::string> missing;
    for (const auto& table : schema::tables())
        for (auto& each : missingIn(connection, table)) missing.push_back(std::move(each));
    for (const auto& each : missing) fmt::print("  {}\n", each);
    if (!missing.empty())
        throw RuntimeFailure(failure::unspecified,
                             fmt::format("数据库与本程序的定义有 {} 处不符", missing.size()));
    fmt::print("{} 个表都符合本程序的定义，可以使用\n", schema::tables().size());
}

}  // namespace desk::admin
