#include "platform/xls/xls_spreadsheets.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "base/failure.h"
#include "platform/replaced_file.h"
#include "platform/xls/container.h"
#include "platform/xls/workbook.h"

namespace desk {

namespace {

constexpr const char* streamName = "Workbook";

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file) throw RuntimeFailure(failure::pathAccess, "文件不能读取：" + path);
    return bytes;
}

}  // namespace

std::string xls::fileWithSheet(std::string_view file, const Worksheet& sheet) {
    Entry root = readContainer(file);
    const auto stream = std::find_if(root.children.begin(), root.children.end(), [](const Entry& entry) {
        return entry.name == streamName && !entry.isFolder;
    });
    if (stream == root.children.end())
        throw RuntimeFailure(failure::spreadsheet, "文件不是 Excel 97-2003 格式的工作簿");
    stream->bytes = withSheet(stream->bytes, sheet);
    return writeContainer(root);
}

void XlsSpreadsheets::create(const std::string& path) {
    xls::Entry root;
    root.isFolder = true;
    root.children.push_back({streamName, false, xls::emptyWorkbook(), {}, {}});
    replaceFile(path, writeContainer(root), Readers::asUsual);
}

void XlsSpreadsheets::put(const std::string& path, const Worksheet& sheet) {
    replaceFile(path, xls::fileWithSheet(readFile(path), sheet), Readers::asUsual);
}

}  // namespace desk
