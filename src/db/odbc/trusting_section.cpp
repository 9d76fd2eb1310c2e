#include "db/odbc/trusting_section.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "base/failure.h"

namespace desk::odbc {

namespace {

constexpr const char* variable = "FREETDSCONF";

/// The file as the driver will read it, whose lines end where a name has a line end.
std::string readable(const std::string& certificates) {
    if (certificates.find_first_of("\r\n") != std::string::npos || !std::ifstream(certificates).good())
        throw RuntimeFailure(failure::unspecified, fmt::format("不能读取可信证书文件 '{}'。", certificates));
    return std::filesystem::absolute(certificates).string();
}

std::string content(const ServerAddress& address, const std::string& certificates) {
    const auto place = address.instance.empty() ? fmt::format("port = {}", address.port)
                                                : fmt::format("instance = {}", address.instance);
    return fmt::format(
        "[tenant-desk]\nhost = {}\n{}\nencryption = require\nca file = {}\ncheck certificate hostname = "
        "yes\n",
        address.host, place, certificates);
}

}  // namespace

TrustingSection::TrustingSection(const ServerAddress& address, const std::string& certificates) {
    const auto text = content(address, readable(certificates));
    file_ = (std::filesystem::temp_directory_path() / "tenant-desk-XXXXXX").string();
    const int file = ::mkstemp(file_.data());
    const bool written =
        file >= 0 && ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    if (file >= 0) ::close(file);
    if (!written) {
        if (file >= 0) ::unlink(file_.c_str());
        throw RuntimeFailure(failure::unspecified, fmt::format("不能写入临时文件 '{}'。", file_));
    }
    if (const char* before = std::getenv(variable)) before_ = before;
    ::setenv(variable, file_.c_str(), 1);
}

TrustingSection::~TrustingSection() {
    if (before_)
        ::setenv(variable, before_->c_str(), 1);
    else
        ::unsetenv(variable);
    ::unlink(file_.c_str());
}

}  // namespace desk::odbc
