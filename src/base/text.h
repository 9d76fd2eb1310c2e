#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// All text of the program is UTF-8.

/// The code of a coded entry "{code} {name}": what stands before the first blank, the whole text without one.
std::string_view codeBeforeBlank(std::string_view entry);

/// The name of a coded entry: what stands after the first blank, empty without one.
std::string_view nameAfterBlank(std::string_view entry);

/// `text` without leading and trailing blanks. Only the blank (U+0020) counts; tabs and line ends stay.
std::string_view trimmed(std::string_view text);

/// What a field of one line takes of a pasted text: its first line that is not empty, tabs as blanks, without
/// blanks at the end.
std::string firstLine(std::string_view text);

/// The parts of `text` between `separator`s; an empty text has no parts.
std::vector<std::string> split(std::string_view text, char separator);

/// `parts` with `separator` between them.
std::string join(const std::vector<std::string>& parts, std::string_view separator);

/// `text` without its first `count` bytes; empty if it has no more. For the ASCII prefixes of tree keys.
std::string_view without(std::string_view text, std::size_t count);

/// The number of code points in `text`.
std::size_t characterCount(std::string_view text);

/// `text` in UTF-16; what is no UTF-8 becomes U+FFFD.
std::u16string toUtf16(std::string_view text);
std::string toUtf8(std::u16string_view text);
/// The code points of `text`; what is no UTF-8 becomes U+FFFD.
std::u32string toUtf32(std::string_view text);

/// The bytes of `text` in GBK, the code page of the programs that this one exchanges files with.
/// A character that GBK lacks becomes "?".
std::string toGbk(std::string_view text);

}  // namespace desk
