#include "intent/unit_list.h"

#include "base/number.h"
#include "ui/batch.h"

namespace desk {

租赁单元列表::租赁单元列表(Place place, std::string name)
    : Grid(place, std::move(name),
           "<序|<楼域                               |<单元名称          |>面积    ||") {
    setColumnWidth(单元ID, 0);
    setColumnWidth(记录ID, 0);
    setSelection(GridSelection::row);
}

void 租赁单元列表::append(const 所选单元& unit) {
    addRow({std::to_string(rows()), unit.楼域, unit.单元名称, numberText(unit.面积),
            std::to_string(unit.单元ID)});
    unitsChanged();
}

void 租赁单元列表::remove(int row) {
    removeAll({row});
}

void 租赁单元列表::removeUnsaved() {
    removeAll(unsaved());
}

std::vector<int> 租赁单元列表::unsaved() const {
    std::vector<int> found;
    for (int row = fixedRows(); row < rows(); ++row)
        if (text(row, 记录ID).empty()) found.push_back(row);
    return found;
}

std::string 租赁单元列表::单元文本() const {
    constexpr std::string_view comma = "，";
    std::string all;
    std::string_view previous;
    for (int row = fixedRows(); row < rows(); ++row) {
        const std::string& section = text(row, 楼域);
        if (section != previous) all += "[" + section + "]";
        all.append(text(row, 单元名称)).append(comma);
        previous = section;
    }
    if (!all.empty()) all.resize(all.size() - comma.size());
    return all;
}

double 租赁单元列表::总面积() const {
    double sum = 0;
    for (int row = fixedRows(); row < rows(); ++row) sum += val(text(row, 面积));
    return sum;
}

void 租赁单元列表::removeAll(const std::vector<int>& ascending) {
    if (ascending.empty()) return;
    {
        const Batch removing(*this);
        for (auto row = ascending.rbegin(); row != ascending.rend(); ++row) removeRow(*row);
        for (int row = fixedRows(); row < rows(); ++row) setText(row, 序, std::to_string(row));
    }
    unitsChanged();
}

}  // namespace desk
