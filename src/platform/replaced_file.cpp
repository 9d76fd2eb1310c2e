#include "platform/replaced_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include "base/failure.h"
#include "platform/descriptor.h"

namespace desk {

namespace {

/// The permissions that the new file gets; the user's mask still takes away from them.
mode_t modeFor(const std::string& path, Readers readers) {
    if (readers == Readers::ownerOnly) return S_IRUSR | S_IWUSR;
    struct stat old {};
    return ::stat(path.c_str(), &old) == 0 ? old.st_mode & 0777 : 0666;
}

/// A new file beside `path`; `name` takes its name. Other seats may be writing theirs at the same time.
Descriptor openBeside(const std::string& path, mode_t mode, std::string& name) {
    constexpr int attempts = 100;
    for (int i = 0; i < attempts; ++i) {
        name = path + "." + std::to_string(::getpid()) + "-" + std::to_string(i) + ".new";
        Descriptor file(::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (file.isOpen() || errno != EEXIST) return file;
    }
    return Descriptor();
}

bool writeWhole(Descriptor& file, std::string_view bytes) {
    return file.writeAll(bytes) && ::fsync(file.number()) == 0 && file.close();
}

/// Makes a rename in the folder outlast a power failure.
void syncFolder(const std::filesystem::path& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A file system that cannot sync a folder still has the file, so nothing is lost by going on.
    if (opened.isOpen()) ::fsync(opened.number());
}

}  // namespace

void replaceFile(const std::string& path, std::string_view bytes, Readers readers) {
    std::string beside;
    Descriptor file = openBeside(path, modeFor(path, readers), beside);
    if (!file.isOpen()) throw RuntimeFailure(failure::pathAccess, "路径/文件访问错误");
    if (!writeWhole(file, bytes) || std::rename(beside.c_str(), path.c_str()) != 0) {
        ::unlink(beside.c_str());
        throw RuntimeFailure(failure::pathAccess, "路径/文件访问错误");
    }
    const auto folder = std::filesystem::path(path).parent_path();
    syncFolder(folder.empty() ? "." : folder);
}

}  // namespace desk
