#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

/// The record stream of BIFF8: each record is a number, a length and as many bytes, little-endian.
namespace desk::xls {

namespace id {
inline constexpr std::uint16_t eof = 0x000A;
inline constexpr std::uint16_t filePass = 0x002F;
inline constexpr std::uint16_t font = 0x0031;
inline constexpr std::uint16_t continuation = 0x003C;
inline constexpr std::uint16_t window1 = 0x003D;
inline constexpr std::uint16_t codePage = 0x0042;
inline constexpr std::uint16_t columnInfo = 0x007D;
inline constexpr std::uint16_t boundSheet = 0x0085;
inline constexpr std::uint16_t xf = 0x00E0;
inline constexpr std::uint16_t mergeCells = 0x00E5;
inline constexpr std::uint16_t sst = 0x00FC;
inline constexpr std::uint16_t labelSst = 0x00FD;
inline constexpr std::uint16_t extSst = 0x00FF;
inline constexpr std::uint16_t tabId = 0x013D;
inline constexpr std::uint16_t supBook = 0x01AE;
inline constexpr std::uint16_t dimensions = 0x0200;
inline constexpr std::uint16_t blank = 0x0201;
inline constexpr std::uint16_t number = 0x0203;
inline constexpr std::uint16_t row = 0x0208;
inline constexpr std::uint16_t index = 0x020B;
inline constexpr std::uint16_t defaultColumnWidth = 0x0055;
inline constexpr std::uint16_t window2 = 0x023E;
inline constexpr std::uint16_t style = 0x0293;
inline constexpr std::uint16_t format = 0x041E;
inline constexpr std::uint16_t bof = 0x0809;
inline constexpr std::uint16_t xfCrc = 0x087C;
}  // namespace id

inline constexpr std::size_t headerSize = 4;
inline constexpr std::size_t maxBody = 8224;

/// Fails with 1004: the file is damaged.
[[noreturn]] void damaged();

/// Numbers inside `bytes`; fail as damaged where there are too few.
std::uint8_t byteAt(std::string_view bytes, std::size_t at);
std::uint16_t shortAt(std::string_view bytes, std::size_t at);
std::uint32_t longAt(std::string_view bytes, std::size_t at);

/// Overwrites numbers inside `bytes`, which are there.
void putShort(std::string& bytes, std::size_t at, std::uint32_t value);
void putLong(std::string& bytes, std::size_t at, std::uint32_t value);

/// A record of a stream, which must outlive it.
struct Record {
    std::uint16_t id;
    std::size_t at;  ///< of its header
    std::string_view body;

    std::size_t end() const { return at + headerSize + body.size(); }
};

/// Fails as damaged if no whole record stands there.
Record recordAt(std::string_view stream, std::size_t at);

/// Bytes in the making.
class Bytes {
  public:
    Bytes& u8(std::uint32_t value);
    Bytes& u16(std::uint32_t value);
    Bytes& u32(std::uint32_t value);
    Bytes& real(double value);
    Bytes& raw(std::string_view bytes);
    /// Characters behind their flags byte, in one byte each where all fit.
    Bytes& characters(std::u16string_view text);
    Bytes& record(std::uint16_t id, std::string_view body);
    /// Short numbers one behind the other, as most records are made of.
    Bytes& shorts(std::initializer_list<std::uint32_t> values) {
        std::array<char, 32> packed;
        std::size_t size = 0;
        for (const std::uint32_t value : values) {
            packed[size++] = static_cast<char>(value & 255U);
            packed[size++] = static_cast<char>(value >> 8 & 255U);
        }
        bytes_.append(packed.data(), size);
        return *this;
    }
    void reserve(std::size_t size) { bytes_.reserve(size); }

    const std::string& get() const { return bytes_; }
    std::string take() { return std::move(bytes_); }
    std::size_t size() const { return bytes_.size(); }

  private:
    std::string bytes_;
};

}  // namespace desk::xls
