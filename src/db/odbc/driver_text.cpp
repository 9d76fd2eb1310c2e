#include "db/odbc/driver_text.h"

#include <fmt/format.h>

#include <charconv>
#include <cstdlib>

#include "base/failure.h"
#include "base/text.h"

namespace desk::odbc {

namespace {

[[noreturn]] void refuse(const std::string& text) {
    throw RuntimeFailure(failure::unspecified, text);
}

/// A value in braces. The usual driver takes all up to "};" as it is, others take a doubled brace for one.
std::string braced(const std::string& value, bool usual) {
    if (value.find('\0') != std::string::npos || (usual && value.find("};") != std::string::npos))
        refuse("用户名、密码或数据库名中有不能使用的字符：右花括号后不能紧接分号，也不能有空字符。");
    std::string text = "{";
    for (const char c : value) {
        text += c;
        if (c == '}' && !usual) text += c;
    }
    return text + "}";
}

std::string fromEnvironment(const char* name, const char* fallback) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : fallback;
}

std::string addressText(const ServerAddress& address, bool usual) {
    if (!address.instance.empty()) return fmt::format("Server={}\\{};", address.host, address.instance);
    if (usual) return fmt::format("Server={};Port={};", address.host, address.port);
    return fmt::format("Server={},{};", address.host, address.port);
}

std::string otherEncryption(const DriverSettings& settings, Encryption encryption) {
    if (encryption != Encryption::required) return "Encrypt=no;";
    if (settings.certificates.empty()) return "Encrypt=yes;TrustServerCertificate=yes;";
    return fmt::format("Encrypt=yes;TrustServerCertificate=no;ServerCertificate={};",
                       braced(settings.certificates, false));
}

}  // namespace

ServerAddress serverAddress(const std::string& dataSource) {
    std::string_view rest = trimmed(dataSource);
    constexpr std::string_view protocol = "tcp:";
    if (rest.starts_with(protocol)) rest.remove_prefix(protocol.size());
    ServerAddress address;
    const auto hostEnd = rest.find_first_of(",\\");
    address.host = trimmed(rest.substr(0, hostEnd));
    if (address.host == "." || address.host == "(local)") address.host = "localhost";
    if (address.host.empty() || address.host.find_first_of(";{}[]=\n\r") != std::string::npos)
        refuse(fmt::format("数据库服务器的名称 '{}' 不正确。", dataSource));
    if (hostEnd == std::string_view::npos) return address;
    const auto after = trimmed(rest.substr(hostEnd + 1));
    const auto comma = rest.rfind(',');
    if (comma != std::string_view::npos) {
        const auto digits = trimmed(rest.substr(comma + 1));
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), address.port);
        if (read.ec != std::errc{} || read.ptr != digits.data() + digits.size() || address.port < 1 ||
            address.port > 65535)
            refuse(fmt::format("数据库服务器 '{}' 的端口不正确。", dataSource));
        return address;
    }
    address.instance = after;
    if (after.empty() || after.find_first_of(";{}[]=\\\n\r") != std::string_view::npos)
        refuse(fmt::format("数据库服务器 '{}' 的实例名不正确。", dataSource));
    return address;
}

DriverSettings DriverSettings::ofEnvironment() {
    return {fromEnvironment("TENANT_DESK_ODBC_DRIVER", usualDriver),
            fromEnvironment("TENANT_DESK_CERTIFICATES", "")};
}

std::string driverText(const ConnectionTarget& target, const DriverSettings& settings, Encryption encryption,
                       const std::optional<std::string>& section) {
    const bool usual = settings.isUsual();
    std::string text = fmt::format("Driver={};", braced(settings.driver, usual));
    if (section)
        text += fmt::format("Servername={};", *section);
    else
        text += addressText(serverAddress(target.dataSource), usual);
    const auto add = [&](const char* key, const std::string& value) {
        text += fmt::format("{}={};", key, braced(value, usual));
    };
    add("Database", target.initialCatalog);
    add("UID", target.userId);
    add("PWD", target.password);
    if (!usual) return text + otherEncryption(settings, encryption);
    // Without a character set of its own the driver stores Chinese wrong, though it comes back right.
    return text + "ClientCharset=UTF-8;TDS_Version=7.3;Encryption=" +
           (encryption == Encryption::required ? "require;" : "request;");
}

}  // namespace desk::odbc
