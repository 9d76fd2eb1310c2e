#include "wire/server/login.h"

#include "wire/server/bytes.h"

namespace desk::wire {

namespace {

/// The text that a pair of offset and length in the head of the message names.
std::string textAt(std::string_view message, ByteReader& head) {
    const auto offset = head.number(2);
    const auto units = head.number(2);
    if (offset + units * 2 > message.size()) throw Malformed("a field of the login lies outside");
    return std::string(message.substr(offset, units * 2));
}

std::string legible(std::string hidden) {
    for (char& c : hidden) {
        const auto bits = static_cast<unsigned char>(static_cast<unsigned char>(c) ^ 0xA5);
        c = static_cast<char>(bits >> 4 | bits << 4);
    }
    return hidden;
}

constexpr unsigned char encryptionOption = 1;
constexpr unsigned char endOfOptions = 0xFF;

}  // namespace

Login readLogin(std::string_view message) {
    constexpr std::size_t fixedPart = 36;
    ByteReader head(message);
    if (head.number(4) != message.size()) throw Malformed("a login of another length than it tells");
    Login login;
    login.version = static_cast<std::uint32_t>(head.number(4));
    head.take(fixedPart - 8);
    textAt(message, head);  // the machine
    login.user = fromUtf16Bytes(textAt(message, head));
    login.password = fromUtf16Bytes(legible(textAt(message, head)));
    login.program = fromUtf16Bytes(textAt(message, head));
    textAt(message, head);  // the server
    head.take(4);           // the extension
    textAt(message, head);  // the client's library
    textAt(message, head);  // the language
    login.database = fromUtf16Bytes(textAt(message, head));
    return login;
}

Encryption readPrelogin(std::string_view message) {
    ByteReader options(message);
    while (true) {
        const auto option = options.number(1);
        if (option == endOfOptions) return Encryption::notSupported;
        const auto offset = options.bigEndian(2);
        options.bigEndian(2);
        if (option != encryptionOption) continue;
        if (offset >= message.size()) throw Malformed("an option lies outside of the message");
        return static_cast<Encryption>(message[offset]);
    }
}

std::string preloginAnswer(Encryption encryption) {
    constexpr unsigned optionsSize = 11;
    ByteWriter out;
    out.byte(0);  // the server's version
    out.bigEndian(optionsSize, 2);
    out.bigEndian(6, 2);
    out.byte(encryptionOption);
    out.bigEndian(optionsSize + 6, 2);
    out.bigEndian(1, 2);
    out.byte(endOfOptions);
    out.bigEndian(0x0A320000, 4);
    out.bigEndian(0, 2);
    out.byte(static_cast<unsigned char>(encryption));
    return out.bytes;
}

}  // namespace desk::wire
