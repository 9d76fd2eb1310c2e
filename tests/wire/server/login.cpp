#include "wire/server/login.h"

#include "wire/server/bytes.h"

namespace desk::wire {

namespace {

/// The bytes that the pair of offset and length at `place` in the head of the message names.
std::string bytesAt(std::string_view message, std::size_t place) {
    ByteReader head(message);
    head.take(place);
    const auto offset = head.number(2);
    const auto units = head.number(2);
    ByteReader all(message);
    all.take(offset);
    return std::string(all.take(units * 2));
}

std::string legible(std::string hidden) {
    for (char& c : hidden) {
        const auto bits = static_cast<unsigned char>(static_cast<unsigned char>(c) ^ 0xA5);
        c = static_cast<char>(bits >> 4 | bits << 4);
    }
    return hidden;
}

}  // namespace

Login readLogin(std::string_view message) {
    return {fromUtf16Bytes(bytesAt(message, 40)), fromUtf16Bytes(legible(bytesAt(message, 44))),
            fromUtf16Bytes(bytesAt(message, 68))};
}

std::string preloginAnswer(bool encrypts) {
    constexpr unsigned optionsSize = 11;
    ByteWriter out;
    out.byte(0);  // the server's version
    out.bigEndian(optionsSize, 2);
    out.bigEndian(6, 2);
    out.byte(1);  // encryption
    out.bigEndian(optionsSize + 6, 2);
    out.bigEndian(1, 2);
    out.byte(0xFF);
    out.bigEndian(0x0A320000, 4);
    out.bigEndian(0, 2);
    constexpr int on = 1;
    constexpr int notSupported = 2;
    out.byte(encrypts ? on : notSupported);
    return out.bytes;
}

}  // namespace desk::wire
