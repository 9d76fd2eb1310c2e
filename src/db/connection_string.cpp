#include "db/connection_string.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "base/text.h"
#include "schema/catalogue.h"

namespace desk {

namespace {

[[noreturn]] void malformed() {
    throw RuntimeFailure(failure::unspecified,
                         "连接字符串的格式不正确，请检查用户名、密码、数据库名和服务器名中的引号和分号。");
}

/// Takes a quoted value, its quotes included, off the head of `rest`.
std::string takeQuoted(std::string_view& rest) {
    const char quote = rest.front();
    std::string value;
    for (std::size_t i = 1; i < rest.size(); ++i) {
        if (rest[i] != quote) {
            value += rest[i];
        } else if (i + 1 < rest.size() && rest[i + 1] == quote) {
            value += rest[i++];
        } else {
            rest.remove_prefix(i + 1);
            return value;
        }
    }
    malformed();
}

std::string takeValue(std::string_view& rest) {
    const auto start = rest.find_first_not_of(' ');
    rest.remove_prefix(start == std::string_view::npos ? rest.size() : start);
    if (rest.empty()) return {};
    if (rest.front() == '\'' || rest.front() == '"') {
        auto value = takeQuoted(rest);
        const auto next = rest.find_first_not_of(' ');
        if (next != std::string_view::npos && rest[next] != ';') malformed();
        rest.remove_prefix(next == std::string_view::npos ? rest.size() : next);
        return value;
    }
    const auto end = std::min(rest.find(';'), rest.size());
    const std::string value(trimmed(rest.substr(0, end)));
    rest.remove_prefix(end);
    return value;
}

/// Where a value of that key belongs; null for a key that tells nothing here.
std::string* partNamed(ConnectionTarget& target, std::string_view key) {
    if (schema::sameName(key, "Data Source")) return &target.dataSource;
    if (schema::sameName(key, "Initial Catalog")) return &target.initialCatalog;
    if (schema::sameName(key, "User ID")) return &target.userId;
    if (schema::sameName(key, "Password")) return &target.password;
    return nullptr;
}

}  // namespace

ConnectionTarget parseConnectionString(std::string_view text) {
    ConnectionTarget target;
    while (true) {
        const auto start = text.find_first_not_of(" ;");
        if (start == std::string_view::npos) return target;
        text.remove_prefix(start);
        const auto equals = text.find('=');
        const auto key = trimmed(text.substr(0, std::min(equals, text.size())));
        if (equals == std::string_view::npos || key.empty() || key.find(';') != std::string_view::npos)
            malformed();
        text.remove_prefix(equals + 1);
        auto value = takeValue(text);
        if (auto* meant = partNamed(target, key)) *meant = std::move(value);
    }
}

std::string connectionStringOf(std::string_view UID, std::string_view PWD, std::string_view DBname,
                               std::string_view Svr) {
    return fmt::format(
        "Provider=SQLOLEDB.1;Password={};Persist Security Info=False;User ID={};Initial Catalog='{}';Data "
        "Source='{}'",
        PWD, UID, DBname, Svr);
}

}  // namespace desk
