#include "ui/grid.h"

#include <algorithm>

#include "base/failure.h"
#include "base/text.h"

namespace desk {

namespace {

constexpr int usualColumnWidth = 960;
constexpr int twipsPerHalfWidth = 105;  ///< a digit or blank of the usual font
constexpr int formatMargin = 90;

/// Han characters and full-width signs take two places.
int placesOf(std::string_view text) {
    int places = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) == 0x80U) continue;
        places += byte >= 0xE0U ? 2 : 1;
    }
    return places;
}

[[noreturn]] void failOutside() {
    throw RuntimeFailure(381, "下标越界");
}

}  // namespace

Grid::Grid(Place place, std::string name, std::string_view format) : Control(place, std::move(name)) {
    rows_.resize(1);
    if (format.empty())
        setColumns(2);
    else
        setFormat(format);
}

void Grid::setFormat(std::string_view format) {
    auto titles = split(format, '|');
    if (titles.empty()) titles.emplace_back();
    setColumns(static_cast<int>(titles.size()));
    for (int column = 0; column < columns(); ++column) {
        std::string_view title = titles[static_cast<std::size_t>(column)];
        auto align = Align::general;
        if (!title.empty() && std::string_view("<^>").find(title.front()) != std::string_view::npos) {
            align = title.front() == '<' ? Align::left : title.front() == '^' ? Align::centre : Align::right;
            title.remove_prefix(1);
        }
        auto& info = columnAt(column);
        // A column without a title keeps the width it had.
        if (!title.empty()) info.width = placesOf(title) * twipsPerHalfWidth + formatMargin;
        info.align = align;
        info.fixedAlign = align;
        rows_.front().cells[static_cast<std::size_t>(column)] = trimmed(title);
    }
    structureIsNew();
}

void Grid::setRows(int count) {
    if (count == rows()) return;
    const auto old = rows_.size();
    rows_.resize(static_cast<std::size_t>(std::max(count, 0)));
    for (auto i = old; i < rows_.size(); ++i) rows_[i].cells.resize(columns_.size());
    row_ = std::clamp(row_, 0, std::max(rows() - 1, 0));
    structureIsNew();
}

void Grid::setColumns(int count) {
    if (count == columns()) return;
    columns_.resize(static_cast<std::size_t>(std::max(count, 0)), ColumnInfo{usualColumnWidth});
    for (auto& row : rows_) row.cells.resize(columns_.size());
    column_ = std::clamp(column_, 0, std::max(columns() - 1, 0));
    structureIsNew();
}

void Grid::setFixedRows(int count) {
    fixedRows_ = count;
    structureIsNew();
}

void Grid::setFixedColumns(int count) {
    fixedColumns_ = count;
    structureIsNew();
}

const std::string& Grid::text(int row, int column) const {
    checkCell(row, column);
    return rowAt(row).cells[static_cast<std::size_t>(column)];
}

void Grid::setText(int row, int column, std::string_view text) {
    checkCell(row, column);
    auto& cell = rowAt(row).cells[static_cast<std::size_t>(column)];
    if (cell == text) return;
    cell = text;
    cellsAreNew();
}

int Grid::addRow(std::vector<std::string> cells) {
    cells.resize(columns_.size());
    rows_.emplace_back().cells = std::move(cells);
    structureIsNew();
    return rows() - 1;
}

void Grid::removeRow(int row) {
    rowAt(row);
    rows_.erase(rows_.begin() + row);
    row_ = std::clamp(row_, 0, std::max(rows() - 1, 0));
    structureIsNew();
}

void Grid::setCurrent(int row, int column) {
    checkCell(row, column);
    if (row == row_ && column == column_) return;
    row_ = row;
    column_ = column;
    currentChanged();
}

int Grid::columnWidth(int column) const {
    return columnAt(column).width;
}
void Grid::setColumnWidth(int column, int twips) {
    change(columnAt(column).width, twips);
}
Align Grid::alignment(int column) const {
    return columnAt(column).align;
}
void Grid::setAlignment(int column, Align alignment) {
    change(columnAt(column).align, alignment);
}
Align Grid::fixedAlignment(int column) const {
    return columnAt(column).fixedAlign;
}
void Grid::setFixedAlignment(int column, Align alignment) {
    change(columnAt(column).fixedAlign, alignment);
}
int Grid::rowHeight(int row) const {
    return rowAt(row).height;
}
void Grid::setRowHeight(int row, int twips) {
    change(rowAt(row).height, twips);
}
long Grid::rowData(int row) const {
    return rowAt(row).data;
}
void Grid::setRowData(int row, long data) {
    rowAt(row).data = data;
}
void Grid::setMerging(Merge merging) {
    change(merging_, merging);
}
bool Grid::mergesRow(int row) const {
    return rowAt(row).merges;
}
void Grid::setMergesRow(int row, bool merges) {
    change(rowAt(row).merges, merges);
}
bool Grid::mergesColumn(int column) const {
    return columnAt(column).merges;
}
void Grid::setMergesColumn(int column, bool merges) {
    change(columnAt(column).merges, merges);
}
void Grid::setSelection(GridSelection selection) {
    change(selection_, selection);
}

void Grid::resize(double width, double height) {
    if (width == width_ && height == height_) return;
    width_ = width;
    height_ = height;
    resized();
}

void Grid::scrollTo(double top) {
    if (top == scrollTop_) return;
    scrollTop_ = top;
    scrolled();
}

Area Grid::cellArea(int row, int column) const {
    checkCell(row, column);
    Area area{0, -scrollTop_, static_cast<double>(columnWidth(column)), static_cast<double>(rowHeight(row))};
    for (int before = 0; before < column; ++before) area.left += columnWidth(before);
    for (int above = fixedRows_; above < row; ++above) area.top += rowHeight(above);
    return area;
}

std::optional<Colour> Grid::cellColour(int row, int column) const {
    const Look* found = look(row, column);
    return found != nullptr ? found->back : std::nullopt;
}

std::optional<Colour> Grid::cellTextColour(int row, int column) const {
    const Look* found = look(row, column);
    return found != nullptr ? found->fore : std::nullopt;
}

std::string_view Grid::cellPicture(int row, int column) const {
    const Look* found = look(row, column);
    return found != nullptr ? std::string_view(found->picture) : std::string_view{};
}

std::optional<Align> Grid::cellAlignment(int row, int column) const {
    const Look* found = look(row, column);
    return found != nullptr ? found->align : std::nullopt;
}

bool Grid::cellBold(int row, int column) const {
    const Look* found = look(row, column);
    return found != nullptr && found->bold;
}

void Grid::setCellColour(int row, int column, std::optional<Colour> colour) {
    setLook(row, column, &Look::back, colour);
}
void Grid::setCellTextColour(int row, int column, std::optional<Colour> colour) {
    setLook(row, column, &Look::fore, colour);
}
void Grid::setCellPicture(int row, int column, std::string_view picture) {
    setLook(row, column, &Look::picture, std::string(picture));
}
void Grid::setCellAlignment(int row, int column, std::optional<Align> alignment) {
    setLook(row, column, &Look::align, alignment);
}
void Grid::setCellBold(int row, int column, bool bold) {
    setLook(row, column, &Look::bold, bold);
}

void Grid::click(int row, int column) {
    // A person may click in the midst of a change, at a row that stands on the screen no more than there.
    if (!usable() || row < 0 || row >= rows() || column < 0 || column >= columns()) return;
    setCurrent(row, column);
    clicked();
}

void Grid::doubleClick(int row, int column) {
    bool isThere = true;
    const Subscription watch = gone.connect([&] { isThere = false; });
    click(row, column);
    if (isThere) pressAgain();
}

void Grid::pressAgain() {
    if (usable()) doubleClicked();
}

void Grid::moveTo(int row, int column) {
    const bool sameLine = selection_ == GridSelection::row && row == row_;
    if (movingKeys_ == MovingKeys::click && !sameLine) return click(row, column);
    if (usable()) setCurrent(row, column);
}

void Grid::endUpdate() {
    if (--updating_ > 0) return;
    if (std::exchange(structurePending_, false)) {
        cellsPending_ = false;
        structureChanged();
    }
    if (std::exchange(cellsPending_, false)) cellsChanged();
}

const Grid::Row& Grid::rowAt(int row) const {
    if (row < 0 || row >= rows()) failOutside();
    return rows_[static_cast<std::size_t>(row)];
}

Grid::Row& Grid::rowAt(int row) {
    return const_cast<Row&>(std::as_const(*this).rowAt(row));
}

const Grid::ColumnInfo& Grid::columnAt(int column) const {
    if (column < 0 || column >= columns()) failOutside();
    return columns_[static_cast<std::size_t>(column)];
}

Grid::ColumnInfo& Grid::columnAt(int column) {
    return const_cast<ColumnInfo&>(std::as_const(*this).columnAt(column));
}

void Grid::checkCell(int row, int column) const {
    rowAt(row);
    columnAt(column);
}

const Grid::Look* Grid::look(int row, int column) const {
    const auto& looks = rowAt(row).looks;
    const auto found = looks.find(column);
    return found == looks.end() ? nullptr : &found->second;
}

template <class T>
void Grid::setLook(int row, int column, T Look::*part, T value) {
    checkCell(row, column);
    auto& present = rowAt(row).looks[column].*part;
    if (present == value) return;
    present = std::move(value);
    cellsAreNew();
}

void Grid::structureIsNew() {
    structurePending_ = updating_ > 0;
    if (updating_ == 0) structureChanged();
}

void Grid::cellsAreNew() {
    cellsPending_ = updating_ > 0;
    if (updating_ == 0) cellsChanged();
}

}  // namespace desk
