#pragma once

#include <vector>

#include "intent/unit_rows.h"
#include "ui/canvas.h"
#include "ui/control_list.h"
#include "ui/fields.h"
#include "ui/scroll_bar.h"

namespace desk {

/// How one section is let: a pie and its figures.
class 统计块 : public Frame {
  public:
    统计块(Place place, int number);

    static constexpr double height = 1740;

    /// Within the panel, in twips.
    double top() const { return top_; }
    void setTop(double top) { set(top_, top); }

    Canvas 饼图;
    Label 标题;
    Label 总面积;

  private:
    double top_ = 0;
};

/// The panel that lies in the map's place and shows a tile for each section, of which five are in view.
class 楼域统计面板 {
  public:
    explicit 楼域统计面板(Screen& screen);

    void show(const std::vector<楼域统计>& sections);
    void hide();
    /// Draws the pie of a section, counted from 0, on its tile.
    void 绘饼图(int 楼域序号);

    Frame 框;
    ControlList<统计块> 块;
    ScrollBar 滚动条;

  private:
    void addTile(const 楼域统计& section);
    void layTiles();

    std::vector<楼域统计> sections_;
};

}  // namespace desk
