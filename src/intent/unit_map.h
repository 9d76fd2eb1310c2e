#pragma once

#include <string_view>

#include "intent/section_tiles.h"
#include "intent/unit_info.h"
#include "intent/unit_picks.h"
#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/choices.h"

namespace desk {

/// The units of an office as a map: what is free, let, kept or being fitted out today. A letter of intent
/// gets its units here. The captions of two buttons are the modes: "取消房源选择" while units are picked,
/// "关闭统计信息" while the pies of the sections stand in the map's place.
class Frm房源一览表 : public Screen {
  public:
    static constexpr const char* screenName = "frm房源一览表";

    explicit Frm房源一览表(Application& app);
    void load() override;
    void activate() override { maximise(); }

    /// Shows the map of the office of that entry, ready to pick units for the letter of intent.
    void openForPicking(std::string_view 管理项目);
    /// Draws the pie of a section, counted from 0, on its tile.
    void 绘饼图(int 楼域序号) { 统计.绘饼图(楼域序号); }

    CodedCombo 区域{*this, "区域"};
    房源图例 图例{*this};
    Button 选择房源{*this, "选择房源", "选择房源"};
    Button 房源选择确定{*this, "房源选择确定", "房源选择确定", ButtonRole::main};
    Button 统计信息{*this, "统计信息", "统计信息"};
    Button 关闭{*this, "关闭", "关闭"};
    Frame 地图框{*this, "地图框"};
    Label 提示{地图框, "提示", "【提示】鼠标单击选择，再次鼠标单击取消选择。鼠标右键单击可查看面积。"};
    Grid 地图{地图框, "地图"};
    房源标记 突出显示{地图框, "突出显示", rgb(0, 0, 192)};  ///< the one unit that is looked at
    房源信息 信息{*this};
    楼域统计面板 统计{*this};
    StatusBar 状态栏{*this, "状态栏", 3};
    选中房源 选中;

  private:
    void layOut();
    void drawMap();
    void clickCell();
    void clickMarker(房源标记& marker, MouseButton button);
    void showInfo(const 房源标记& marker);
    void showTotal();
    void startOrStopPicking();
    void startPicking();
    void stopPicking();
    bool picking() const { return 房源选择确定.enabled(); }
    void handOver();
    void toggleStatistics();
    void showMapAgain();

    Application& app_;
    房源图 图_;
    std::vector<std::string> L_IDs_;  ///< the sections that the user may see
};

}  // namespace desk
