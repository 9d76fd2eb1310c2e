#include "platform/spreadsheets.h"

#include <algorithm>

#include "base/failure.h"

namespace desk {

namespace {

[[noreturn]] void refuse(const char* why) {
    throw RuntimeFailure(failure::spreadsheet, why);
}

void checkPlace(std::size_t row, std::size_t column) {
    if (row >= Worksheet::maxRows) refuse("工作表最多 65536 行");
    if (column >= Worksheet::maxColumns) refuse("工作表最多 256 列");
}

}  // namespace

Worksheet::Cell& Worksheet::at(int row, int column) {
    const auto line = static_cast<std::size_t>(row);
    const auto place = static_cast<std::size_t>(column);
    checkPlace(line, place);
    if (line >= rows_.size()) rows_.resize(line + 1);
    if (place >= rows_[line].size()) rows_[line].resize(place + 1);
    return rows_[line][place];
}

void Worksheet::append(Table table) {
    if (table.rows > 0 && !table.columns.empty())
        checkPlace(rows_.size() + static_cast<std::size_t>(table.rows) - 1, table.columns.size() - 1);
    table_ = std::move(table);
}

void Worksheet::setColumnWidth(int column, double characters) {
    if (characters < 0 || characters > 255) refuse("列宽必须在 0 到 255 个字符之间");
    if (column < 0 || column >= maxColumns) refuse("工作表最多 256 列");
    widths_[column] = characters;
}

void Worksheet::merge(const Range& range) {
    if (range.top < 0 || range.left < 0 || range.bottom < range.top || range.right < range.left ||
        range.bottom >= maxRows || range.right >= maxColumns)
        refuse("没有可以合并的单元格");
    // Cells that are one already come along as a whole: no two ranges ever overlap.
    Range whole = range;
    for (std::size_t i = 0; i < merges_.size();) {
        const Range& other = merges_[i];
        if (other.top > whole.bottom || other.bottom < whole.top || other.left > whole.right ||
            other.right < whole.left) {
            ++i;
            continue;
        }
        whole = {std::min(whole.top, other.top), std::min(whole.left, other.left),
                 std::max(whole.bottom, other.bottom), std::max(whole.right, other.right)};
        merges_.erase(merges_.begin() + static_cast<std::ptrdiff_t>(i));
        i = 0;
    }
    merges_.push_back(whole);
}

}  // namespace desk
