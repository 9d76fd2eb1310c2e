#include "db/odbc/login.h"

#include <fmt/format.h>

#include "db/odbc/trusting_section.h"

namespace desk::odbc {

namespace {

constexpr long wrongLogin = 18456;
constexpr long noDatabase = 4060;

/// What went wrong on the way to the server, for the person who has written the settings.
std::string reason(const Diagnosis& cause, const DriverSettings& settings, std::chrono::seconds timeout) {
    if (cause.state == "IM002" || cause.state == "IM003" || cause.state == "01000")
        return fmt::format("本机没有安装名为 '{}' 的 ODBC 驱动程序。", settings.driver);
    if (cause.state == "HYT00") return fmt::format("服务器在 {} 秒内没有应答。", timeout.count());
    if (cause.number == wrongLogin || cause.number == noDatabase || cause.state == "28000") return cause.text;
    if (cause.state == "08001" && !settings.certificates.empty())
        return fmt::format(
            "不能建立可信的加密连接：服务器的证书或名称与可信证书文件 '{}' 不符，"
            "或者服务器不支持加密。",
            settings.certificates);
    if (tellsLostServer(cause)) return "服务器不存在、没有启动，或者网络不通。";
    return cause.text;
}

/// Whether the server may be one that cannot encrypt: the driver gives no reason then.
bool perhapsNoEncryption(const Diagnosis& cause) {
    return cause.state == "08001" && cause.number == 0;
}

}  // namespace

std::shared_ptr<OdbcConnection> login(const ConnectionTarget& target, const DriverSettings& settings,
                                      std::chrono::seconds timeout) {
    const auto attempt = [&](Encryption encryption, const std::optional<std::string>& section,
                             std::shared_ptr<OdbcConnection>& connection) {
        connection = std::make_shared<OdbcConnection>(timeout);
        return connection->connect(driverText(target, settings, encryption, section));
    };
    std::shared_ptr<OdbcConnection> connection;
    std::vector<Diagnosis> failed;
    if (settings.certificates.empty()) {
        failed = attempt(Encryption::required, {}, connection);
        if (!failed.empty() && perhapsNoEncryption(causeOf(failed)))
            failed = attempt(Encryption::wherePossible, {}, connection);
    } else if (!settings.isUsual()) {
        failed = attempt(Encryption::required, {}, connection);
    } else {
        const TrustingSection section(serverAddress(target.dataSource), settings.certificates);
        failed = attempt(Encryption::required, section.name(), connection);
    }
    if (failed.empty()) return connection;
    throw RuntimeFailure(failure::unspecified, fmt::format("无法连接数据库服务器 '{}'：{}", target.dataSource,
                                                           reason(causeOf(failed), settings, timeout)));
}

}  // namespace desk::odbc
