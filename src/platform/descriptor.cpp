#include "platform/descriptor.h"

#include <unistd.h>

#include <cerrno>

namespace desk {

bool Descriptor::writeAll(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(number_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool Descriptor::close() {
    const int number = std::exchange(number_, -1);
    return number < 0 || ::close(number) == 0;
}

}  // namespace desk
