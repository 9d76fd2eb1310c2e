#include "intent/unit_drawing.h"

#include <algorithm>

#include "base/failure.h"
#include "ui/batch.h"

namespace desk {

namespace {

constexpr int columnWidth = 700;
constexpr int bandHeight = 300;
constexpr int unitHeight = 650;

}  // namespace

房源图例::房源图例(Screen& screen)
    : 保留用房(screen, "保留用房"),
      未出租(screen, "未出租"),
      已出租(screen, "已出租"),
      装修中(screen, "装修中"),
      异常(screen, "异常") {
    保留用房.setColour(rgb(255, 255, 255));
    未出租.setColour(rgb(182, 250, 192));
    已出租.setColour(rgb(253, 205, 140));
    装修中.setColour(rgb(249, 252, 124));
    异常.setColour(rgb(255, 128, 128));
}

房源图::房源图(Grid& grid, const 房源图例& legend) : grid_(grid), legend_(legend) {
    grid_.setFixedRows(0);
    grid_.setFixedColumns(0);
    grid_.setRows(0);
    grid_.setSizes(GridSizes::asSet);
    grid_.setMerging(Merge::free);
}

void 房源图::layColumns(double width) {
    const Batch laying(grid_);
    grid_.setColumns(std::max(static_cast<int>((width - Grid::scrollBarWidth) / columnWidth), 1));
    for (int column = 0; column < grid_.columns(); ++column) grid_.setColumnWidth(column, columnWidth);
}

void 房源图::clear() {
    grid_.setRows(0);
    sections_.clear();
}

void 房源图::draw(房源行 rows) {
    const Batch drawing(grid_);
    clear();
    std::int64_t section = 0;
    int column = 0;
    for (; !rows.atEnd(); rows.moveNext()) {
        const std::int64_t L_ID = rows.L_ID();
        if (!sections_.empty() && L_ID == section) {
            ++column;
        } else {
            if (!sections_.empty()) closeSection();
            startSection(rows);
            section = L_ID;
            column = grid_.columns();
        }
        if (column == grid_.columns()) {
            addContentRow(L_ID);
            column = 0;
        }
        if (rows.hasUnit()) drawUnit(rows, column);
    }
    if (!sections_.empty()) closeSection();
}

void 房源图::startSection(房源行& rows) {
    sections_.emplace_back().楼域 = rows.楼域();
    rentable_ = 0;
    let_ = 0;
    addBand(sections_.back().楼域);
}

/// What is let counts whether it can be rented or not, so that the rate can be more than all.
void 房源图::closeSection() {
    楼域统计& section = sections_.back();
    section.可出租总面积 = rentable_;
    section.出租率 = rentable_ == 0 ? 0 : let_ * 100 / rentable_;
    section.未租份额 = 100 - section.出租率;
}

void 房源图::addBand(const std::string& name) {
    const int row = grid_.addRow(std::vector<std::string>(static_cast<std::size_t>(grid_.columns()), name));
    grid_.setRowHeight(row, bandHeight);
    grid_.setMergesRow(row, true);
    for (int column = 0; column < grid_.columns(); ++column) {
        grid_.setCellColour(row, column, bandColour);
        grid_.setCellAlignment(row, column, Align::left);
        grid_.setCellBold(row, column, true);
    }
}

void 房源图::addContentRow(std::int64_t L_ID) {
    const int row = grid_.addRow();
    grid_.setRowHeight(row, unitHeight);
    grid_.setRowData(row, static_cast<long>(L_ID));
    for (int column = 0; column < grid_.columns(); ++column) {
        grid_.setCellColour(row, column, legend_.保留用房.colour());
        grid_.setCellAlignment(row, column, Align::centre);
    }
}

void 房源图::drawUnit(房源行& rows, int column) {
    const int row = grid_.rows() - 1;
    const auto place = static_cast<std::size_t>(placeOf(row, column));
    if (place >= units_.size()) units_.resize(place + 1);
    grid_.setText(row, column, rows.室());
    grid_.setCellColour(row, column, colourOf(rows));
    units_[place] = rows.unit();
    if (rows.可出租()) rentable_ += rows.建筑面积();
    if (rows.hasTenant()) let_ += rows.建筑面积();
}

Colour 房源图::colourOf(房源行& rows) const {
    if (rows.装修中()) return legend_.装修中.colour();
    if (rows.hasTenant()) return legend_.已出租.colour();
    if (rows.可出租()) return legend_.未出租.colour();
    return legend_.保留用房.colour();
}

bool 房源图::isUnit(int row, int column) const {
    return grid_.cellColour(row, column) != bandColour && !grid_.text(row, column).empty();
}

bool 房源图::canBePicked(int row, int column) const {
    return grid_.cellColour(row, column) == legend_.未出租.colour();
}

const 房源& 房源图::at(int place) const {
    if (place < 0 || place >= static_cast<int>(units_.size()))
        throw RuntimeFailure(failure::subscript, "下标越界");
    return units_[static_cast<std::size_t>(place)];
}

}  // namespace desk
