#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/canvas.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/grid.h"
#include "ui/pie_chart.h"
#include "ui/tree.h"

namespace desk {

/// How the customers registered in a range of days stand: each counts once, under the state of the latest
/// entry in its diary. A table and a pie, of which the slice under the pointer rises.
class Frm客户跟进状态分析 : public Screen {
  public:
    static constexpr const char* screenName = "Frm客户跟进状态分析";

    explicit Frm客户跟进状态分析(Application& app);
    void load() override;
    void activate() override { maximise(); }

    /// Of the table, in twips; it lies over the lower edge of the picture.
    static constexpr double 表格高度 = 3000;

    /// Draws the pie and the legend from the last result.
    void 绘制饼图();
    /// The statement behind the analysis of the ticked states.
    std::string 统计语句() const;

    DatePicker DTPicker1{*this, "DTPicker1"};
    DatePicker DTPicker2{*this, "DTPicker2"};
    CodedCombo Combo1{*this, "Combo1"};
    Frame 跟进状态{*this, "跟进状态", "跟进状态"};
    CheckBox Check6{跟进状态, "Check6", "全部"};
    Tree TreeView2{跟进状态, "TreeView2", Tree::Style::checkBoxes};
    Button Command1{*this, "Command1", "统计", ButtonRole::main};
    Button Command13{*this, "Command13", "输出"};
    Button Command4{*this, "Command4", "退出"};
    TextBox Text2{*this, "Text2"};  ///< never shown: the depth of the pie in twips
    Canvas Picture1{*this, "Picture1"};
    Grid 图例{*this, "图例", "<颜色|<状态名称        |>百分比 "};  ///< a row for each slice
    Frame 结果面板{*this, "结果面板"};
    Grid MSFlexGrid1{结果面板, "MSFlexGrid1", resultFormat};
    StatusBar 状态栏{*this, "状态栏", 2};

  private:
    static constexpr const char* resultFormat = "序|<状态名称        |颜色表示     |>数量       |>百分比 ";

    struct Result {
        std::string 状态编号;
        std::string 状态名称;
        std::string 颜色表示;
        std::int16_t 数量 = 0;
        std::int16_t 百分比 = 0;
    };

    std::vector<std::string> tickedStates() const;
    void analyse();
    void readResults();
    void showResults();
    void showLegend();
    void setGeometry();
    void raiseAt(double x, double y);
    void hand();

    Application& app_;
    std::vector<Result> results_;
    std::vector<PieSlice> slices_;
    PieShape shape_;
    Picture kept_;  ///< the pie without a raised slice
};

}  // namespace desk
