#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace desk {

/// Who may read a file that is written anew.
enum class Readers {
    ownerOnly,  ///< mode 0600, for a file that holds a password
    asUsual,    ///< what the user's mask allows
};

/// What a save does, in this order; many writes, the rest once each.
enum class SaveStep { open, write, sync, close, rename, syncFolder };
/// Asked before each step of a save; a step that it forbids fails as if the machine had refused it.
using SaveGate = std::function<bool(SaveStep)>;

/// A file in the making. False where the machine refuses.
class NewFile {
  public:
    virtual bool write(std::string_view bytes) = 0;
    /// The next write goes there, over what stands there.
    virtual bool seek(std::uint64_t position) = 0;

  protected:
    ~NewFile() = default;
};

/// Puts what `fill` writes in the place of the file `path`: it is written beside it, synced, and renamed over
/// it, so that whoever reads sees the old file or the new one, whole, also after a power failure. Fails with
/// 75 when any step is refused or `fill` says false; the old file then stands as it was. A symbolic link
/// stays, and the file that it leads to is replaced.
void replaceFile(const std::string& path, const std::function<bool(NewFile&)>& fill, Readers readers,
                 const SaveGate& gate = {});
void replaceFile(const std::string& path, std::string_view bytes, Readers readers);

}  // namespace desk
