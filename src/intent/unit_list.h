#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ui/grid.h"

namespace desk {

/// One unit that has been chosen for a letter.
struct 所选单元 {
    std::string 楼域;  ///< the section that it lies in, as people read it
    std::string 单元名称;
    double 面积 = 0;
    std::int32_t 单元ID = 0;
};

/// The units chosen for the letter on the screen. A row without an `ID` in its last column is not saved: the
/// unit is not reserved yet.
class 租赁单元列表 : public Grid {
  public:
    enum Column { 序, 楼域, 单元名称, 面积, 单元ID, 记录ID };

    租赁单元列表(Place place, std::string name);

    Signal<> unitsChanged;  ///< rows have come or gone

    /// A row that is not saved, behind the others; a unit that is there already comes a second time.
    void append(const 所选单元& unit);
    /// Takes a row away, and numbers the others anew.
    void remove(int row);
    /// Takes all rows away that are not saved.
    void removeUnsaved();

    /// Positions of the rows that are not saved, in their order.
    std::vector<int> unsaved() const;

    /// All units in one text, those of one section behind its name: "[东塔]101，102，[西塔]9".
    std::string 单元文本() const;
    /// The sum of their areas.
    double 总面积() const;

  private:
    /// And numbers the others anew.
    void removeAll(const std::vector<int>& ascending);
};

}  // namespace desk
