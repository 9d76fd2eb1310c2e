#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/text.h"

namespace desk::wire {

/// The line has gone, or the client has sent what cannot be read: it is no longer served.
class LineGone : public std::runtime_error {
  public:
    LineGone() : std::runtime_error("the line has gone") {}
};

inline std::string utf16Bytes(std::string_view text) {
    const auto wide = toUtf16(text);
    return {reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(char16_t)};
}

inline std::string fromUtf16Bytes(std::string_view bytes) {
    std::u16string wide(bytes.size() / sizeof(char16_t), u'\0');
    bytes.copy(reinterpret_cast<char*>(wide.data()), wide.size() * sizeof(char16_t));
    return toUtf8(wide);
}

/// Composes what goes over the wire; numbers are little-endian unless said otherwise.
class ByteWriter {
  public:
    std::string bytes;

    void number(std::uint64_t value, int width) {
        for (int i = 0; i < width; ++i) bytes += static_cast<char>(value >> (8 * i));
    }
    void bigEndian(std::uint64_t value, int width) {
        while (width-- > 0) bytes += static_cast<char>(value >> (8 * width));
    }
    void byte(std::uint64_t value) { number(value, 1); }
    /// UTF-16 behind the count of its units, which is `width` bytes wide.
    void counted(std::string_view text, int width) {
        const auto wide = utf16Bytes(text);
        number(wide.size() / 2, width);
        bytes += wide;
    }
};

/// Takes what came over the wire apart. Fails with LineGone where it ends too early.
class ByteReader {
  public:
    explicit ByteReader(std::string_view bytes) : rest_(bytes) {}

    std::string_view take(std::size_t count) {
        if (count > rest_.size()) throw LineGone();
        const auto taken = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return taken;
    }
    std::uint64_t number(int width) {
        std::uint64_t value = 0;
        const auto taken = take(static_cast<std::size_t>(width));
        for (int i = width; i-- > 0;) value = value << 8 | static_cast<unsigned char>(taken[std::size_t(i)]);
        return value;
    }

    std::string_view rest() const { return rest_; }

  private:
    std::string_view rest_;
};

}  // namespace desk::wire
