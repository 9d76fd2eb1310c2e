#include "reference/setup_grid.h"

#include "session/grid_rows.h"
#include "ui/batch.h"

namespace desk {

namespace {
constexpr const char* marker = "→";
}

SetupGrid::SetupGrid(Place place, std::string name, std::string_view format, int keyColumn)
    : Grid(place, std::move(name), format), keyColumn_(keyColumn) {
    setSelection(GridSelection::row);
    setMovingKeys(MovingKeys::click);
    addRow();
    goToLast();
}

std::string SetupGrid::key() const {
    return row() < fixedRows() ? std::string() : text(row(), keyColumn_);
}

void SetupGrid::fill(Recordset& entries, const std::vector<std::string_view>& columns,
                     const std::function<void(int row)>& each) {
    const Batch filling(*this);
    fillGrid(*this, entries, columns, each);
    addRow();
    goToLast();
}

void SetupGrid::mark() {
    const Batch marking(*this);
    for (int each = fixedRows(); each < rows(); ++each)
        setText(each, 0, each == row() ? marker : std::to_string(each));
}

void SetupGrid::goToLast() {
    const Batch going(*this);
    setRow(rows() - 1);
    mark();
}

void SetupGrid::goTo(std::string_view key) {
    for (int each = fixedRows(); each < rows(); ++each) {
        if (text(each, keyColumn_) != key) continue;
        const Batch going(*this);
        setRow(each);
        return mark();
    }
}

void SetupGrid::grow() {
    addRow({std::to_string(rows())});
}

void SetupGrid::put(int row, const std::vector<std::string>& cells) {
    const Batch putting(*this);
    for (std::size_t i = 0; i < cells.size(); ++i) setText(row, static_cast<int>(i) + 1, cells[i]);
}

void SetupGrid::dropCurrent() {
    const Batch dropping(*this);
    removeRow(row());
    goToLast();
}

}  // namespace desk
