#include "platform/settings.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <vector>

#include "base/failure.h"
#include "base/text.h"
#include "platform/replaced_file.h"

namespace desk {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The whole file; nothing when it cannot be read.
std::optional<std::string> contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    // A folder opens like a file, and fails only here.
    if (file.bad() || (bytes.fail() && file.peek() != std::ifstream::traits_type::eof())) return std::nullopt;
    return bytes.str();
}

/// One line of the file, without its end.
std::string_view withoutReturn(std::string_view line) {
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

/// The section that a line opens, nothing if it opens none.
std::optional<std::string_view> openedSection(std::string_view line) {
    const auto text = trimmed(withoutReturn(line));
    if (text.size() < 2 || text.front() != '[' || text.back() != ']') return std::nullopt;
    return text.substr(1, text.size() - 2);
}

/// The value that a line gives to `key`, nothing if it is about something else.
std::optional<std::string_view> valueOf(std::string_view key, std::string_view line) {
    const auto text = withoutReturn(line);
    const auto sign = text.find('=');
    if (sign == std::string_view::npos || trimmed(text.substr(0, sign)) != key) return std::nullopt;
    return text.substr(sign + 1);
}

/// Where a key stands in the lines of a file, or where it would have to stand.
struct Place {
    std::optional<std::size_t> line;        ///< of the key
    std::optional<std::size_t> sectionEnd;  ///< behind the last line with text of the first such section
    std::string_view value;
};

Place find(const std::vector<std::string>& lines, std::string_view section, std::string_view key) {
    Place place;
    bool inside = false;
    bool first = true;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (const auto opened = openedSection(lines[i])) {
            if (inside) first = false;
            inside = *opened == section;
        } else if (inside) {
            if (const auto value = valueOf(key, lines[i])) {
                place.line = i;
                place.value = *value;
                return place;
            }
        }
        if (inside && first && !trimmed(withoutReturn(lines[i])).empty()) place.sectionEnd = i + 1;
    }
    return place;
}

std::vector<std::string> linesOf(std::string_view text) {
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    if (text.ends_with('\n')) text.remove_suffix(1);
    return split(text, '\n');
}

bool isOneLine(std::string_view text) {
    return text.find_first_of("\r\n") == std::string_view::npos;
}

}  // namespace

std::string IniSettings::userFolder() {
    // A relative folder there has no meaning, and is passed over.
    if (const char* folder = std::getenv("XDG_CONFIG_HOME"); folder != nullptr && *folder == '/')
        return folder;
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0')
        return std::string(home) + "/.config";
    const passwd* user = ::getpwuid(::getuid());
    return (user != nullptr ? std::string(user->pw_dir) : std::string()) + "/.config";
}

std::string IniSettings::file(std::string_view application) const {
    return folder_ + "/" + std::string(application) + ".ini";
}

std::string IniSettings::read(std::string_view application, std::string_view section, std::string_view key,
                              std::string_view fallback) const {
    const auto lines = linesOf(contents(file(application)).value_or(""));
    const Place place = find(lines, section, key);
    return std::string(place.line ? place.value : fallback);
}

void IniSettings::write(std::string_view application, std::string_view section, std::string_view key,
                        std::string_view value) {
    if (!isOneLine(value) || !isOneLine(key) || key.find('=') != std::string_view::npos ||
        trimmed(key) != key)
        throw RuntimeFailure(failure::invalidCall, "无效的过程调用或参数");

    std::error_code refused;
    std::filesystem::create_directories(folder_, refused);
    const std::string path = file(application);
    const auto old = contents(path);
    // What cannot be read cannot be kept, so it must not be replaced.
    if (!old && std::filesystem::exists(path, refused))
        throw RuntimeFailure(failure::pathAccess, "路径/文件访问错误");

    auto lines = linesOf(old.value_or(""));
    const Place place = find(lines, section, key);
    // A file that an editor of another system wrote keeps its line ends.
    const std::string end = old && old->find("\r\n") != std::string::npos ? "\r" : "";
    const std::string line = std::string(key) + "=" + std::string(value) + end;
    if (place.line) {
        lines[*place.line] = line;
    } else if (place.sectionEnd) {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(*place.sectionEnd), line);
    } else {
        lines.push_back("[" + std::string(section) + "]" + end);
        lines.push_back(line);
    }
    replaceFile(path, join(lines, "\n") + "\n", Readers::ownerOnly);
}

}  // namespace desk
