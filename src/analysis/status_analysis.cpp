#include "analysis/status_analysis.h"

#include "analysis/excel_export.h"
#include "base/number.h"
#include "base/text.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "platform/clock.h"
#include "session/helpers.h"
#include "ui/batch.h"

namespace desk {

namespace {
enum LegendColumn { 颜色列, 名称列, 百分比列 };
constexpr int 结果颜色列 = 2;
}  // namespace

Frm客户跟进状态分析::Frm客户跟进状态分析(Application& app)
    : Screen(screenName, "客户跟进状态分析", WindowKind::child, 18000, 10200), app_(app) {
    Text2.setText("600");
    Text2.setVisible(false);
    结果面板.setVisible(false);
    图例.setFixedRows(0);
    图例.setRows(0);
    Check6.clicked += [this] {
        for (const auto& state : TreeView2.roots()) TreeView2.setChecked(*state, Check6.checked());
    };
    Command1.clicked += [this] { analyse(); };
    Command13.clicked += [this] { hand(); };
    Command4.clicked += [this] { app_.screens.unload(*this); };
    Picture1.resized += [this] {
        if (!results_.empty()) 绘制饼图();
    };
    Picture1.pointerMoved += [this](double x, double y) { raiseAt(x, y); };
}

void Frm客户跟进状态分析::load() {
    状态栏.setPanel(0, app_.session.登录部门名称);
    状态栏.setPanel(1, app_.session.登录岗位名称);
    DTPicker1.setValue(app_.platform.clock.today());
    DTPicker2.setValue(app_.platform.clock.today());
    填充管理处(app_, Combo1);
    const Batch fill(TreeView2);
    for (auto& row : Recordset(app_.主连接, "Select * From YZ_跟进状态设置  Order by len(状态编号),状态编号"))
        TreeView2.add(nullptr, "S" + row["状态编号"].text(), row["状态名称"].text());
}

std::vector<std::string> Frm客户跟进状态分析::tickedStates() const {
    std::vector<std::string> states;
    for (const auto& state : TreeView2.roots())
        if (state->checked()) states.emplace_back(without(state->key(), 1));
    return states;
}

std::string Frm客户跟进状态分析::统计语句() const {
    const Fragment latest = fragment(
        "SELECT 管理处代号, 登记编号, MAX(跟进日期) AS 跟进日期 FROM YZ_引驻客户跟进记录 GROUP BY "
        "管理处代号, "
        "登记编号");
    const Fragment entries = fragment(
        "SELECT DISTINCT  YZ_引驻客户跟进记录.ID, YZ_引驻客户跟进记录.管理处代号, "
        "YZ_引驻客户跟进记录.登记编号, YZ_引驻客户跟进记录.跟进日期, YZ_引驻客户跟进记录.跟进人工号 , "
        "YZ_引驻客户跟进记录.跟进情况, YZ_引驻客户跟进记录.跟进状态编号, "
        "YZ_引驻客户跟进记录.预约日期,YZ_引驻客户信息.登记日期 FROM YZ_引驻客户跟进记录 INNER JOIN ({}) AS A "
        "ON YZ_引驻客户跟进记录.管理处代号 = A.管理处代号 AND YZ_引驻客户跟进记录.登记编号 = A.登记编号 And "
        "YZ_引驻客户跟进记录.跟进日期 = A.跟进日期 Inner Join YZ_引驻客户信息 ON  "
        "A.管理处代号=YZ_引驻客户信息.管理处代号 and   A.登记编号 =YZ_引驻客户信息.登记编号",
        latest);
    // All offices count, whatever the box says.
    return sql(
        "Select YZ_跟进状态设置.状态编号,YZ_跟进状态设置.状态名称,YZ_跟进状态设置.颜色表示,"
        "Count(YZ_跟进状态设置.状态编号)  AS SL From ({}) B  Inner Join YZ_跟进状态设置 ON "
        "B.跟进状态编号=YZ_跟进状态设置.状态编号 Where YZ_跟进状态设置.状态编号 IN ({} ) AND B.登记日期 "
        "between '{}' AND '{}' Group By "
        "YZ_跟进状态设置.状态编号,YZ_跟进状态设置.状态名称,YZ_跟进状态设置.颜色表示",
        entries, literals(tickedStates()), isoDay(DTPicker1.value()), isoDay(DTPicker2.value()));
}

void Frm客户跟进状态分析::analyse() {
    if (tickedStates().empty()) return app_.inform("请选择跟进状态!", "提示");
    {
        const Hourglass busy(app_.desktop);
        readResults();
    }
    showResults();
    if (MSFlexGrid1.rows() > 1) 结果面板.setVisible(true);
    绘制饼图();
}

void Frm客户跟进状态分析::readResults() {
    results_.clear();
    double total = 0;
    for (auto& row : Recordset(app_.主连接, 统计语句())) {
        results_.push_back({row["状态编号"].text(), row["状态名称"].text(), row["颜色表示"].text(),
                            toInt16(row["SL"].number()), 0});
        total += results_.back().数量;
    }
    for (Result& result : results_) result.百分比 = toInt16(val(numberText(result.数量 / total)) * 100);
}

void Frm客户跟进状态分析::showResults() {
    const Batch showing(MSFlexGrid1);
    MSFlexGrid1.setFormat(resultFormat);
    MSFlexGrid1.setRows(1);
    for (const Result& result : results_) {
        const int row = MSFlexGrid1.addRow({std::to_string(MSFlexGrid1.rows()), result.状态名称, "",
                                            std::to_string(result.数量), std::to_string(result.百分比)});
        MSFlexGrid1.setCellColour(row, 结果颜色列, static_cast<Colour>(val(result.颜色表示)));
    }
}

void Frm客户跟进状态分析::setGeometry() {
    shape_.长半轴 = toInt16(0.8 * Picture1.width() / 4);
    shape_.短半轴 = toInt16(shape_.长半轴 * 0.64);
    shape_.饼厚 = toInt16(Text2.text());
    shape_.圆心X = Picture1.width() / 2;
    shape_.圆心Y = (Picture1.height() - 表格高度) / 2;
}

void Frm客户跟进状态分析::绘制饼图() {
    setGeometry();
    Picture1.setVisible(true);
    Picture1.clear();
    slices_.clear();
    for (const Result& result : results_) {
        const auto packed = static_cast<Colour>(val(result.颜色表示));
        slices_.push_back({rgb(redOf(packed), greenOf(packed), blueOf(packed)), result.百分比 / 100.0});
    }
    showLegend();
    drawPie(Picture1, shape_, slices_);
    kept_ = Picture1.picture();
}

void Frm客户跟进状态分析::showLegend() {
    const Batch showing(图例);
    图例.setRows(0);
    for (std::size_t i = 0; i < results_.size(); ++i) {
        const int row = 图例.addRow({"", results_[i].状态名称, std::to_string(results_[i].百分比) + "%"});
        图例.setCellColour(row, 颜色列, slices_[i].colour);
    }
}

void Frm客户跟进状态分析::raiseAt(double x, double y) {
    if (kept_.empty()) return;
    const Colour under = Picture1.point(x, y);
    Picture1.picture() = kept_;
    for (int row = 0; row < 图例.rows(); ++row)
        if (图例.cellColour(row, 颜色列) == under) {
            setGeometry();
            return drawRaised(Picture1, shape_, slices_, static_cast<std::size_t>(row));
        }
    Picture1.repaint();
}

void Frm客户跟进状态分析::hand() {
    输出表格(app_, MSFlexGrid1, "客户跟进状态分析", DTPicker1.value(), DTPicker2.value());
}

}  // namespace desk
