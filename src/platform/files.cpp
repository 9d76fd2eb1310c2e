#include "platform/files.h"

#include <fcntl.h>

#include <cstdlib>
#include <filesystem>

#include "base/failure.h"
#include "platform/descriptor.h"

namespace desk {

std::string SystemFiles::programDirectory() const {
    if (const char* home = std::getenv("TENANT_DESK_HOME"); home != nullptr && *home != '\0') {
        std::string folder = home;
        while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
        return folder;
    }
    return executableDirectory();
}

std::string SystemFiles::executableDirectory() {
    std::error_code unknown;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", unknown);
    return unknown ? "." : executable.parent_path().string();
}

bool SystemFiles::exists(std::string_view path) const {
    std::error_code unreachable;
    return std::filesystem::exists(std::filesystem::path(path), unreachable);
}

void SystemFiles::write(std::string_view path, std::string_view bytes) {
    Descriptor file(::open(std::string(path).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    if (!file.isOpen() || !file.writeAll(bytes) || !file.close())
        throw RuntimeFailure(failure::pathAccess, "路径/文件访问错误");
}

}  // namespace desk
