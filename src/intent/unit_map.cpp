#include "intent/unit_map.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "base/number.h"
#include "intent/letter.h"
#include "platform/clock.h"
#include "session/helpers.h"

namespace desk {

namespace {

constexpr const char* toPick = "选择房源";
constexpr const char* toStopPicking = "取消房源选择";
constexpr const char* toStatistics = "统计信息";
constexpr const char* toMap = "关闭统计信息";

}  // namespace

Frm房源一览表::Frm房源一览表(Application& app)
    : Screen(screenName, "房源一览表", WindowKind::child, 18000, 10200),
      选中(地图框, 地图, 图_),
      app_(app),
      图_(地图, 图例) {
    图_.layColumns(width());
    突出显示.setVisible(false);
    提示.setVisible(false);
    for (Button* button : {&选择房源, &房源选择确定}) button->setVisible(false);
    for (Button* button : {&选择房源, &房源选择确定, &统计信息}) button->setEnabled(false);
    区域.selected += [this] { drawMap(); };
    地图.resized += [this] { layOut(); };
    地图.clicked += [this] { clickCell(); };
    地图.scrolled += [this] { 突出显示.setVisible(false); };
    突出显示.clicked += [this](MouseButton) { showInfo(突出显示); };
    选中.clicked = [this](房源标记& marker, MouseButton button) { clickMarker(marker, button); };
    选择房源.clicked += [this] { startOrStopPicking(); };
    房源选择确定.clicked += [this] { handOver(); };
    统计信息.clicked += [this] { toggleStatistics(); };
    关闭.clicked += [this] { app_.screens.unload(*this); };
}

void Frm房源一览表::load() {
    状态栏.setPanel(1, app_.session.登录部门名称);
    状态栏.setPanel(2, app_.session.登录姓名);
    填充管理处(app_, 区域);
    for (auto& row :
         Recordset(app_.主连接, sql("Select L_ID From 楼域范围设置 Where 工号='{}'", app_.session.登录工号)))
        L_IDs_.push_back(row["L_ID"].text());
}

void Frm房源一览表::openForPicking(std::string_view 管理项目) {
    if (const int office = 区域.find(管理项目); office >= 0 && office == 区域.index())
        drawMap();  // as it is now, with the letter's office chosen anew
    else if (office >= 0)
        区域.setIndex(office);
    startPicking();
    选择房源.setVisible(true);
    房源选择确定.setVisible(true);
    app_.screens.open(screenName);
}

/// Markers stay where they are, so that they lie over their cells no more.
void Frm房源一览表::layOut() {
    图_.layColumns(地图.width());
    // Who may see nothing has been told so when the office was chosen.
    if (区域.hasSelection() && !L_IDs_.empty()) drawMap();
}

void Frm房源一览表::drawMap() {
    try {
        突出显示.setVisible(false);
        showMapAgain();
        图_.clear();
        if (L_IDs_.empty()) return app_.inform("尚未设置对应的楼域范围，请设置楼域范围！");
        if (!区域.hasSelection()) return;
        图_.draw(房源行({app_.主连接, 房源语句(区域.code(), L_IDs_, app_.platform.clock.today())}));
        if (地图.rows() > 0) 地图.reveal(0);
        选择房源.setEnabled(true);
        统计信息.setEnabled(true);
    } catch (const RuntimeFailure& failure) {
        app_.tell(fmt::format("错误，错误为：{} {}", failure.number(), failure.description()));
    }
}

void Frm房源一览表::clickCell() {
    信息.close();
    const int row = 地图.row();
    const int column = 地图.column();
    if (!图_.isUnit(row, column)) return;
    // Only the keyboard comes to a cell below a marker, and means the marker.
    const Area area = 地图.cellArea(row, column);
    if (房源标记* marker = 选中.over(area)) return clickMarker(*marker, MouseButton::left);
    if (picking()) {
        if (!图_.canBePicked(row, column)) return;
        选中.pick(row, column);
        return showTotal();
    }
    if (突出显示.visible() && 突出显示.area() == area) return showInfo(突出显示);
    突出显示.layOver(地图, row, column, 图_.placeOf(row, column));
    突出显示.setVisible(true);
}

void Frm房源一览表::clickMarker(房源标记& marker, MouseButton button) {
    if (button != MouseButton::left) return showInfo(marker);
    信息.close();
    选中.cancel(marker);
    showTotal();
}

void Frm房源一览表::showInfo(const 房源标记& marker) {
    信息.show(图_.at(marker.place()), marker);
}

void Frm房源一览表::showTotal() {
    状态栏.setPanel(0, "所选面积合计：" + formatNumber(选中.面积合计(), "0.00"));
}

void Frm房源一览表::startOrStopPicking() {
    if (选择房源.caption() != toPick) return stopPicking();
    突出显示.setVisible(false);
    startPicking();
}

void Frm房源一览表::startPicking() {
    选择房源.setCaption(toStopPicking);
    房源选择确定.setEnabled(true);
    提示.setVisible(true);
}

void Frm房源一览表::stopPicking() {
    选择房源.setCaption(toPick);
    房源选择确定.setEnabled(false);
    // It may stand beside a marker that goes.
    信息.close();
    选中.cancelAll();
    showTotal();
    提示.setVisible(false);
}

void Frm房源一览表::handOver() {
    const auto units = 选中.units();
    auto& letter = app_.screens.get<Frm意向书信息>();
    for (const auto& unit : units) letter.单元列表.append(unit);
    app_.screens.open(Frm意向书信息::screenName);
    app_.screens.unload(*this);
}

void Frm房源一览表::toggleStatistics() {
    if (统计信息.caption() != toStatistics) return showMapAgain();
    信息.close();
    地图框.setVisible(false);
    统计.show(图_.sections());
    统计信息.setCaption(toMap);
}

void Frm房源一览表::showMapAgain() {
    统计.hide();
    地图框.setVisible(true);
    统计信息.setCaption(toStatistics);
}

}  // namespace desk
