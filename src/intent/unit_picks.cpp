#include "intent/unit_picks.h"

#include <fmt/format.h>

#include "base/number.h"

namespace desk {

namespace {

constexpr Colour pickColour = rgb(0, 128, 128);

}  // namespace

void 房源标记::layOver(const Grid& map, int row, int column, int place) {
    lay(map.cellArea(row, column));
    setText(map.text(row, column));
    tag = std::to_string(place);
}

void 房源标记::takePlaceOf(const 房源标记& other) {
    lay(other.area());
    setText(other.text());
    tag = other.tag;
}

int 房源标记::place() const {
    return toInt32(tag);
}

选中房源::选中房源(Frame& frame, const Grid& map, const 房源图& drawing)
    : 标记([this, &frame](int before) {
          auto marker = std::make_unique<房源标记>(frame, fmt::format("标记({})", before + 1), pickColour);
          marker->clicked += [this, made = marker.get()](MouseButton button) { clicked(*made, button); };
          return marker;
      }),
      map_(map),
      drawing_(drawing) {}

void 选中房源::pick(int row, int column) {
    标记.add().layOver(map_, row, column, drawing_.placeOf(row, column));
}

void 选中房源::cancel(const 房源标记& marker) {
    int at = 0;
    while (&标记[at] != &marker) ++at;
    for (; at + 1 < 标记.count(); ++at) 标记[at].takePlaceOf(标记[at + 1]);
    标记.removeLast();
}

double 选中房源::面积合计() const {
    double sum = 0;
    for (int i = 0; i < 标记.count(); ++i) sum += drawing_.at(标记[i].place()).面积;
    return sum;
}

std::vector<所选单元> 选中房源::units() const {
    std::vector<所选单元> units;
    for (int i = 0; i < 标记.count(); ++i) {
        const 房源& unit = drawing_.at(标记[i].place());
        units.push_back({unit.楼域, 标记[i].text(), unit.面积, unit.单元ID});
    }
    if (units.empty()) units.emplace_back();
    return units;
}

房源标记* 选中房源::over(const Area& area) const {
    for (int i = 0; i < 标记.count(); ++i)
        if (标记[i].area() == area) return &标记[i];
    return nullptr;
}

}  // namespace desk
