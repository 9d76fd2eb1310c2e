#pragma once

#include <string>
#include <string_view>

namespace desk {

/// Who may read a file that is written anew.
enum class Readers {
    ownerOnly,  ///< mode 0600, for a file that holds a password
    asUsual,    ///< what the user's mask allows
};

/// Puts `bytes` in the place of the file `path`: they are written beside it, synced, and renamed over it, so
/// that whoever reads sees the old file or the new one, whole, also after a power failure. Fails with 75 when
/// any step is refused; the old file then stands as it was.
void replaceFile(const std::string& path, std::string_view bytes, Readers readers);

}  // namespace desk
