#include "platform/xls/record.h"

#include <algorithm>
#include <bit>

#include "base/failure.h"

namespace desk::xls {

void damaged() {
    throw RuntimeFailure(failure::spreadsheet, "文件已损坏，不能写入");
}

std::uint8_t byteAt(std::string_view bytes, std::size_t at) {
    if (at >= bytes.size()) damaged();
    return static_cast<std::uint8_t>(bytes[at]);
}

std::uint16_t shortAt(std::string_view bytes, std::size_t at) {
    return static_cast<std::uint16_t>(byteAt(bytes, at) | byteAt(bytes, at + 1) << 8);
}

std::uint32_t longAt(std::string_view bytes, std::size_t at) {
    return shortAt(bytes, at) | static_cast<std::uint32_t>(shortAt(bytes, at + 2)) << 16;
}

void putShort(std::string& bytes, std::size_t at, std::uint32_t value) {
    bytes[at] = static_cast<char>(value & 255U);
    bytes[at + 1] = static_cast<char>(value >> 8 & 255U);
}

void putLong(std::string& bytes, std::size_t at, std::uint32_t value) {
    putShort(bytes, at, value & 65535U);
    putShort(bytes, at + 2, value >> 16);
}

Record recordAt(std::string_view stream, std::size_t at) {
    const std::uint16_t number = shortAt(stream, at);
    const std::size_t length = shortAt(stream, at + 2);
    if (length > stream.size() - at - headerSize) damaged();
    return {number, at, stream.substr(at + headerSize, length)};
}

Bytes& Bytes::u8(std::uint32_t value) {
    bytes_.push_back(static_cast<char>(value & 255U));
    return *this;
}

Bytes& Bytes::u16(std::uint32_t value) {
    return u8(value).u8(value >> 8);
}

Bytes& Bytes::u32(std::uint32_t value) {
    return u16(value).u16(value >> 16);
}

Bytes& Bytes::real(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    return u32(static_cast<std::uint32_t>(bits)).u32(static_cast<std::uint32_t>(bits >> 32));
}

Bytes& Bytes::raw(std::string_view bytes) {
    bytes_ += bytes;
    return *this;
}

Bytes& Bytes::characters(std::u16string_view text) {
    const bool wide = std::any_of(text.begin(), text.end(), [](char16_t c) { return c > 255; });
    u8(wide ? 1 : 0);
    for (const char16_t c : text)
        if (wide)
            u16(c);
        else
            u8(c);
    return *this;
}

Bytes& Bytes::record(std::uint16_t id, std::string_view body) {
    return u16(id).u16(static_cast<std::uint32_t>(body.size())).raw(body);
}

}  // namespace desk::xls
