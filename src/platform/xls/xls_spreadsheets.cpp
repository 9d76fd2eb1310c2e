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

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
    file.seekg(0).read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file) throw RuntimeFailure(failure::pathAccess, "文件不能读取：" + path);
    return bytes;
}

xls::Entry containerWithSheet(std::string_view file, const Worksheet& sheet) {
    xls::Entry root = xls::readContainer(file);
    const auto stream = std::find_if(root.children.begin(), root.children.end(), [](const xls::Entry& entry) {
        return entry.name == streamName && !entry.isFolder;
    });
    if (stream == root.children.end())
        throw RuntimeFailure(failure::spreadsheet, "文件不是 Excel 97-2003 格式的工作簿");
    stream->parts = {xls::withSheet(stream->parts.front(), sheet)};
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
