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

[[noreturn]] void refuse() {
    throw RuntimeFailure(failure::pathAccess, "路径/文件访问错误");
}

/// The file to which the symbolic links from `path` on lead; it need not be there.
std::string behindLinks(std::filesystem::path path) {
    constexpr int longestChain = 40;  // as many as the system follows
    for (int i = 0; i < longestChain; ++i) {
        std::error_code noLink;
        const auto target = std::filesystem::read_symlink(path, noLink);
        if (noLink) return path.string();
        path = path.parent_path() / target;
    }
    refuse();
}

/// A new file beside the one that it is to replace, gone again unless it has done so.
class Beside final : public NewFile {
  public:
    Beside(const std::string& path, mode_t mode, const SaveGate& gate) : path_(path), gate_(gate) {
        if (!allowed(SaveStep::open)) return;
        // Other seats may be writing theirs at the same time.
        constexpr int attempts = 100;
        for (int i = 0; i < attempts && !file_.isOpen(); ++i) {
            name_ = path + "." + std::to_string(::getpid()) + "-" + std::to_string(i) + ".new";
            file_ = Descriptor(::open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
            if (!file_.isOpen() && errno != EEXIST) break;
        }
        if (!file_.isOpen()) name_.clear();
    }
    ~Beside() {
        if (!name_.empty()) ::unlink(name_.c_str());
    }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;

    bool isOpen() const { return file_.isOpen(); }

    bool write(std::string_view bytes) override {
        constexpr std::size_t much = 65536;
        while (!bytes.empty()) {
            const std::string_view part = bytes.substr(0, much - waiting_.size());
            waiting_ += part;
            bytes.remove_prefix(part.size());
            if (waiting_.size() == much && !flush()) break;
        }
        return whole_;
    }
    bool seek(std::uint64_t position) override {
        whole_ = flush() && ::lseek(file_.number(), static_cast<off_t>(position), SEEK_SET) >= 0;
        return whole_;
    }

    bool takePlace() {
        if (!flush() || !allowed(SaveStep::sync) || ::fsync(file_.number()) != 0) return false;
        if (!allowed(SaveStep::close) || !file_.close()) return false;
        if (!allowed(SaveStep::rename) || std::rename(name_.c_str(), path_.c_str()) != 0) return false;
        name_.clear();
        return true;
    }

  private:
    bool allowed(SaveStep step) const { return !gate_ || gate_(step); }
    bool flush() {
        if (waiting_.empty()) return whole_;
        // Who fills the file may not heed what it is told, so a loss is remembered.
        whole_ = whole_ && allowed(SaveStep::write) && file_.writeAll(waiting_);
        waiting_.clear();
        return whole_;
    }

    const std::string& path_;
    const SaveGate& gate_;
    std::string name_;  ///< empty once there is nothing to take away
    Descriptor file_;
    std::string waiting_;
    bool whole_ = true;
};

/// Makes a rename in the folder outlast a power failure.
void syncFolder(const std::filesystem::path& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A file system that cannot sync a folder still has the file, so nothing is lost by going on.
    if (opened.isOpen()) ::fsync(opened.number());
}

}  // namespace

void replaceFile(const std::string& path, const std::function<bool(NewFile&)>& fill, Readers readers,
                 const SaveGate& gate) {
    const std::string target = behindLinks(path);
    Beside file(target, modeFor(target, readers), gate);
    if (!file.isOpen() || !fill(file) || !file.takePlace()) refuse();
    if (gate && !gate(SaveStep::syncFolder)) return;
    const auto folder = std::filesystem::path(target).parent_path();
    syncFolder(folder.empty() ? "." : folder);
}

void replaceFile(const std::string& path, std::string_view bytes, Readers readers) {
    replaceFile(
        path, [bytes](NewFile& file) { return file.write(bytes); }, readers);
}

}  // namespace desk
