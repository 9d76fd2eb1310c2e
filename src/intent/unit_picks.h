#pragma once

#include <functional>
#include <string>
#include <vector>

#include "intent/unit_drawing.h"
#include "intent/unit_list.h"
#include "ui/control_list.h"
#include "ui/marker.h"

namespace desk {

/// A marker that stands for the unit in a cell: it has the cell's text, and the unit's place on the map in
/// its tag.
class 房源标记 : public Marker {
  public:
    using Marker::Marker;

    void layOver(const Grid& map, int row, int column, int place);
    /// Takes over where the other lies and what it stands for.
    void takePlaceOf(const 房源标记& other);
    int place() const;
};

/// The picked units: a marker for each, numbered from 1, which lies exactly over its cell and stays there
/// when the map is scrolled or drawn anew.
class 选中房源 {
  public:
    /// The markers lie in `frame` over the map.
    选中房源(Frame& frame, const Grid& map, const 房源图& drawing);

    void pick(int row, int column);
    /// Takes a marker away; the later ones move up by one.
    void cancel(const 房源标记& marker);
    void cancelAll() { 标记.clear(); }

    double 面积合计() const;
    /// What a letter gets: each unit, or one that is none where nothing is picked.
    std::vector<所选单元> units() const;
    /// The marker that lies exactly there, null without one.
    房源标记* over(const Area& area) const;

    ControlList<房源标记> 标记;
    std::function<void(房源标记&, MouseButton)> clicked;

  private:
    const Grid& map_;
    const 房源图& drawing_;
};

}  // namespace desk
