#include "intent/section_tiles.h"

#include <fmt/format.h>

#include "base/number.h"
#include "ui/pie_chart.h"

namespace desk {

namespace {

constexpr double gap = 60;
constexpr int tilesInView = 5;
constexpr PieShape pieShape{1000, 640, 200, 1300, 880};
/// The other way round than on the map, as the users of these pies know them.
constexpr Colour notLet = rgb(253, 205, 140);
constexpr Colour let = rgb(182, 250, 192);

}  // namespace

统计块::统计块(Place place, int number)
    : Frame(place, fmt::format("统计块({})", number)),
      饼图(*this, fmt::format("饼图({})", number)),
      标题(*this, fmt::format("标题({})", number)),
      总面积(*this, fmt::format("总面积({})", number)) {}

楼域统计面板::楼域统计面板(Screen& screen)
    : 框(screen, "统计面板"),
      块([this](int number) {
          auto tile = std::make_unique<统计块>(框, number);
          tile->饼图.resized += [this, number] { 绘饼图(number); };
          return tile;
      }),
      滚动条(框, "滚动条") {
    框.setVisible(false);
    滚动条.setVisible(false);
    滚动条.moved += [this] { layTiles(); };
}

void 楼域统计面板::show(const std::vector<楼域统计>& sections) {
    块.clear();
    sections_ = sections;
    const int hidden = static_cast<int>(sections.size()) - tilesInView;
    滚动条.setVisible(hidden > 0);
    滚动条.setLast(hidden);
    滚动条.setPosition(0);
    框.setVisible(true);
    for (const auto& section : sections_) addTile(section);
    layTiles();
}

void 楼域统计面板::hide() {
    块.clear();
    框.setVisible(false);
}

void 楼域统计面板::addTile(const 楼域统计& section) {
    统计块& tile = 块.add();
    tile.标题.setCaption(fmt::format("  {} 出租率：{}%", section.楼域, formatNumber(section.出租率, "0.00")));
    tile.总面积.setCaption("可出租总面积：" + numberText(section.可出租总面积));
}

void 楼域统计面板::layTiles() {
    for (int k = 0; k < 块.count(); ++k) 块[k].setTop((k - 滚动条.position()) * (统计块::height + gap));
}

void 楼域统计面板::绘饼图(int 楼域序号) {
    const 楼域统计& section = sections_.at(static_cast<std::size_t>(楼域序号));
    Canvas& canvas = 块[楼域序号].饼图;
    canvas.clear();
    drawPie(canvas, pieShape, {{notLet, section.未租份额 / 100}, {let, section.出租率 / 100}});
}

}  // namespace desk
