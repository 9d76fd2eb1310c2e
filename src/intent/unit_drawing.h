#pragma once

#include <vector>

#include "intent/unit_rows.h"
#include "ui/fields.h"
#include "ui/grid.h"

namespace desk {

/// What the colours of the map mean. Whatever is drawn or asked takes its colour from these boxes.
struct 房源图例 {
    explicit 房源图例(Screen& screen);

    Swatch 保留用房;
    Swatch 未出租;
    Swatch 已出租;
    Swatch 装修中;
    Swatch 异常;  ///< shown, but no unit is ever drawn so
};

/// The map itself: for each section a band with its name, and below it a cell for each unit.
class 房源图 {
  public:
    房源图(Grid& grid, const 房源图例& legend);

    /// As many columns as lie side by side in that width (twips); 1 at least.
    void layColumns(double width);
    /// Leaves no cell and no section. The units keep their places: a mark on one of them may still be there.
    void clear();
    /// Draws all rows in place of what is there. A failure leaves what was drawn until then.
    void draw(房源行 rows);

    /// Whether a cell stands for a unit: not a band, and not empty.
    bool isUnit(int row, int column) const;
    bool canBePicked(int row, int column) const;
    /// The place of a cell in the order of the map, which finds its unit.
    int placeOf(int row, int column) const { return row * grid_.columns() + column; }
    /// Fails with 9 for a place that the map does not have.
    const 房源& at(int place) const;

    /// In the order of the map.
    const std::vector<楼域统计>& sections() const { return sections_; }

    static constexpr Colour bandColour = rgb(186, 189, 174);

  private:
    void startSection(房源行& rows);
    void closeSection();
    void addBand(const std::string& name);
    void addContentRow(std::int64_t L_ID);
    void drawUnit(房源行& rows, int column);
    Colour colourOf(房源行& rows) const;

    Grid& grid_;
    const 房源图例& legend_;
    std::vector<房源> units_;  ///< by place; as far as the last cell that was ever drawn
    std::vector<楼域统计> sections_;
    double rentable_ = 0;  ///< areas of the section that is being drawn
    double let_ = 0;
};

}  // namespace desk
