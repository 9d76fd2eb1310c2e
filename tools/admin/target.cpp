#include "admin/target.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "admin/database_commands.h"
#include "admin/password.h"

namespace desk::admin {

namespace {

constexpr std::chrono::seconds timeout{30};

bool namesServer(const std::vector<std::string>& words) {
    return std::any_of(words.begin(), words.end(), [](const std::string& word) {
        return word == "--server" || word.starts_with("--server=");
    });
}

std::vector<std::string> withServer(std::vector<std::string> known) {
    known.insert(known.end(), {"server", "database", "user", "password"});
    return known;
}

/// A value of a connection string, whatever is in it.
std::string quoted(const std::string& value) {
    std::string text = "'";
    for (const char c : value) text += std::string(c == '\'' ? 2 : 1, c);
    return text + "'";
}

}  // namespace

Target::Target(const std::vector<std::string>& words, std::vector<std::string> known, std::size_t plainCount,
               std::string_view plainNames)
    : arguments_(words, withServer(std::move(known)), plainCount + (namesServer(words) ? 0 : 1),
                 plainNames.empty() ? "FILE" : fmt::format("FILE {}", plainNames)),
      onServer_(namesServer(words)),
      file_(onServer_ ? std::string() : arguments_.plain(0)) {
    if (onServer_ && !arguments_.option("database")) throw UsageError("缺少选项“--database”");
    for (const char* option : {"database", "user", "password"})
        if (!onServer_ && arguments_.option(option))
            throw UsageError(fmt::format("选项“--{}”只用于服务器", option));
}

std::string Target::shown() const {
    if (!onServer_) return file_;
    return fmt::format("{}（服务器 {}）", arguments_.option("database", ""), arguments_.option("server", ""));
}

Connection Target::open() const {
    if (!onServer_) return openFile(file_);
    Connection connection;
    connection.open(
        fmt::format("Data Source={};Initial Catalog={};User ID={};Password={}",
                    quoted(arguments_.option("server", "")), quoted(arguments_.option("database", "")),
                    quoted(arguments_.option("user", "")), quoted(passwordOf(arguments_))),
        timeout);
    return connection;
}

}  // namespace desk::admin
