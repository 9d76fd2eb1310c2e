#include "admin/settings_command.h"

#include <fmt/format.h>

#include <filesystem>

#include "admin/arguments.h"
#include "admin/database_commands.h"
#include "admin/password.h"
#include "db/embedded/embedded.h"
#include "platform/settings.h"

namespace desk::admin {

namespace {

constexpr const char* application = settingsApplication;
constexpr const char* section = settingsSection;

void print(const IniSettings& store, const std::string& folder) {
    fmt::print("设置文件：{}/{}.ini\n", folder, application);
    for (const char* key : {"Svr", "DBname", "UID"})
        fmt::print("{}={}\n", key, store.read(application, section, key, ""));
    fmt::print("PWD={}\n", store.read(application, section, "PWD", "").empty() ? "" : "******");
    fmt::print("Edition={}\n", store.read(application, section, "Edition", "2000"));
}

/// Server and database as the program will look for them, whatever folder it is started in.
std::pair<std::string, std::string> target(const Arguments& arguments) {
    const auto file = arguments.option("file");
    const auto server = arguments.option("server");
    if (file.has_value() == server.has_value())
        throw UsageError("请指定 --file FILE，或 --server NAME 与 --database NAME");
    if (server) {
        const auto database = arguments.option("database");
        if (!database) throw UsageError("缺少选项“--database”");
        return {*server, *database};
    }
    if (arguments.option("database")) throw UsageError("选项“--database”只用于服务器");
    const std::string path = std::filesystem::absolute(*file).lexically_normal().string();
    openFile(path);  // refuses what the program could not open either
    return {std::string(embedded::dataSource), path};
}

}  // namespace

void settings(const std::vector<std::string>& words) {
    const Arguments arguments(words, {"file", "server", "database", "user", "password", "edition", "folder"},
                              0, "");
    const std::string folder = arguments.option("folder", IniSettings::userFolder());
    IniSettings store(folder);
    const bool onlyAsked = !arguments.hasOptions() || (words.size() <= 2 && arguments.option("folder"));
    if (!onlyAsked) {
        const auto [server, database] = target(arguments);
        store.write(application, section, "Svr", server);
        store.write(application, section, "DBname", database);
        store.write(application, section, "UID", arguments.option("user", ""));
        store.write(application, section, "PWD", passwordOf(arguments));
        store.write(application, section, "Edition", arguments.option("edition", "2000"));
    }
    print(store, folder);
}

}  // namespace desk::admin
