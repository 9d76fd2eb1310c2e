#include "platform/xls/file_password.h"

#include <glib.h>

#include <array>
#include <numeric>
#include <string>

#include "base/text.h"
#include "platform/xls/record.h"

namespace desk::xls {

namespace {

constexpr std::string_view password = "VelvetSweatshop";

std::string digest(GChecksumType kind, std::string_view bytes) {
    std::array<guint8, 32> sum;
    gsize size = sum.size();
    GChecksum* running = g_checksum_new(kind);
    g_checksum_update(running, reinterpret_cast<const guchar*>(bytes.data()),
                      static_cast<gssize>(bytes.size()));
    g_checksum_get_digest(running, sum.data(), &size);
    g_checksum_free(running);
    return {reinterpret_cast<const char*>(sum.data()), size};
}

/// The stream cipher of these files, which en- and deciphers alike.
std::string rc4(std::string_view key, std::string_view bytes) {
    std::array<std::uint8_t, 256> state;
    std::iota(state.begin(), state.end(), std::uint8_t{0});
    for (std::size_t i = 0, j = 0; i < state.size(); ++i) {
        j = (j + state[i] + static_cast<std::uint8_t>(key[i % key.size()])) % state.size();
        std::swap(state[i], state[j]);
    }
    std::string out;
    std::size_t i = 0;
    std::size_t j = 0;
    for (const char c : bytes) {
        i = (i + 1) % state.size();
        j = (j + state[i]) % state.size();
        std::swap(state[i], state[j]);
        const unsigned mask = state[(state[i] + state[j]) % state.size()];
        out.push_back(static_cast<char>(static_cast<std::uint8_t>(c) ^ mask));
    }
    return out;
}

std::string widePassword() {
    Bytes wide;
    for (const char c : password) wide.u16(static_cast<std::uint8_t>(c));
    return wide.take();
}

/// The oldest way: the bytes are changed by a mask, and the record holds a sum over the password.
bool fitsMask(std::string_view record) {
    constexpr std::size_t sumAt = 4;
    std::string reversed(password.rbegin(), password.rend());
    reversed.push_back(static_cast<char>(password.size()));
    unsigned sum = 0;
    for (const char c : reversed)
        sum = ((sum >> 14 & 1U) | (sum << 1 & 0x7FFFU)) ^ static_cast<std::uint8_t>(c);
    return shortAt(record, sumAt) == (sum ^ 0xCE4BU);
}

/// Whether the key deciphers a random text and the digest of that text, which stand one behind the other.
bool fitsKey(std::string_view key, std::string_view textAndDigest, GChecksumType kind) {
    constexpr std::size_t textSize = 16;
    const std::string plain = rc4(key, textAndDigest);
    return digest(kind, plain.substr(0, textSize)) == plain.substr(textSize);
}

bool fitsMd5(std::string_view record) {
    constexpr std::size_t saltAt = 6;
    constexpr std::size_t partSize = 16;
    constexpr std::size_t kept = 5;
    if (record.size() < saltAt + 3 * partSize) return false;
    const std::string start = digest(G_CHECKSUM_MD5, widePassword()).substr(0, kept);
    std::string salted;
    for (int i = 0; i < 16; ++i) salted += start + std::string(record.substr(saltAt, partSize));
    const std::string block = digest(G_CHECKSUM_MD5, salted).substr(0, kept) + std::string(4, '\0');
    return fitsKey(digest(G_CHECKSUM_MD5, block), record.substr(saltAt + partSize, 2 * partSize),
                   G_CHECKSUM_MD5);
}

bool fitsSha1(std::string_view record) {
    constexpr std::size_t headSizeAt = 10;
    constexpr std::size_t headAt = 14;
    constexpr std::size_t keyBitsInHead = 16;
    constexpr std::size_t saltSize = 16;
    constexpr std::size_t digestSize = 20;
    const std::size_t verifierAt = headAt + longAt(record, headSizeAt);
    // The salt behind its size; the text; the digest behind its size.
    if (record.size() < verifierAt + 4 + saltSize + 16 + 4 + digestSize) return false;
    const std::string_view verifier = record.substr(verifierAt + 4);
    const std::string salt(verifier.substr(0, saltSize));
    const std::string start = digest(G_CHECKSUM_SHA1, salt + widePassword());
    const std::uint32_t bits = longAt(record, headAt + keyBitsInHead);
    std::string key = digest(G_CHECKSUM_SHA1, start + std::string(4, '\0'));
    constexpr std::uint32_t shortest = 40;
    constexpr std::size_t shortKeyFilled = 16;
    key.resize(bits == 0 ? shortest / 8 : std::min<std::size_t>(bits / 8, key.size()));
    if (bits <= shortest) key.resize(shortKeyFilled, '\0');
    return fitsKey(key,
                   std::string(verifier.substr(saltSize, 16)) +
                       std::string(verifier.substr(saltSize + 16 + 4, digestSize)),
                   G_CHECKSUM_SHA1);
}

}  // namespace

bool hasDefaultPassword(std::string_view filePass) {
    constexpr std::size_t least = 6;
    constexpr std::size_t leastOfCiphers = 14;
    if (filePass.size() < least) return false;
    if (shortAt(filePass, 0) == 0) return fitsMask(filePass);
    const std::uint16_t major = shortAt(filePass, 2);
    const std::uint16_t minor = shortAt(filePass, 4);
    if (filePass.size() < leastOfCiphers) return false;
    if (major == 1 && minor == 1) return fitsMd5(filePass);
    return major >= 2 && major <= 4 && minor == 2 && fitsSha1(filePass);
}

}  // namespace desk::xls
