#include "platform/xls/xls_spreadsheets.h"

#include <algorithm>
#include <fstream>

#include "base/failure.h"
#include "platform/replaced_file.h"
#include "platform/xls/container.h"
#include "platform/xls/workbook.h"

namespace desk {

namespace {

constexpr const char* streamName = "Workbook";
constexpr const char* olderName = "Book";  ///< of the format before this one, and of some programs

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
    file.seekg(0).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file) throw RuntimeFailure(failure::pathAccess, "文件不能读取：" + path);
    return bytes;
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameName(std::string_view one, std::string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return lowered(a) == lowered(b); });
}

/// The file of that name inside the folder; casing does not count in names.
std::vector<xls::Entry>::iterator findStream(xls::Entry& folder, std::string_view name) {
    return std::find_if(folder.children.begin(), folder.children.end(), [name](const xls::Entry& entry) {
        return !entry.isFolder && sameName(entry.name, name);
    });
}

xls::Entry containerWithSheet(std::string_view file, const Worksheet& sheet) {
    xls::Entry root = xls::readContainer(file);
    const auto none = root.children.end();
    const auto older = findStream(root, olderName);
    const auto newer = findStream(root, streamName);
    const auto stream = newer != none ? newer : older;
    if (stream == none) throw RuntimeFailure(failure::spreadsheet, "文件不是 Excel 97-2003 格式的工作簿");
    stream->parts = xls::withSheet(stream->parts.front(), sheet);
    // A second copy for older programs would be out of date now.
    if (stream != older && older != none) root.children.erase(older);
    return root;
}

void save(const std::string& path, const xls::Entry& root, const SaveGate& gate) {
    replaceFile(
        path, [&root](NewFile& file) { return xls::writeContainer(root, file); }, Readers::asUsual, gate);
}

}  // namespace

std::string xls::fileWithSheet(std::string_view file, const Worksheet& sheet) {
    return writeContainer(containerWithSheet(file, sheet));
}

void XlsSpreadsheets::create(const std::string& path) {
    xls::Entry root;
    root.isFolder = true;
    root.children.push_back({streamName, false, {xls::emptyWorkbook()}, {}, {}});
    save(path, root, gate_);
}

void XlsSpreadsheets::put(const std::string& path, const Worksheet& sheet) {
    save(path, containerWithSheet(readFile(path), sheet), gate_);
}

}  // namespace desk
