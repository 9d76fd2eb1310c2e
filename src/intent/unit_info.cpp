#include "intent/unit_info.h"

#include "base/number.h"

namespace desk {

namespace {

const char* stateOf(const 房源& unit) {
    if (!unit.可出租) return "单元不可出租";
    if (!unit.客户编号.empty()) return "单元已出租";
    return unit.装修中 ? "单元装修之中" : "单元可出租";
}

}  // namespace

房源信息::房源信息(Screen& screen)
    : 面板(screen, "信息面板"),
      建筑面积(面板, "建筑面积"),
      客户(面板, "客户"),
      客户编号(面板, "客户编号"),
      层次(面板, "层次"),
      装修(面板, "装修"),
      状态(面板, "状态"),
      关闭窗口(面板, "关闭窗口", "关闭窗口") {
    关闭窗口.clicked += [this] { close(); };
}

void 房源信息::show(const 房源& unit, const Marker& beside) {
    建筑面积.setCaption(numberText(unit.面积));
    客户.setCaption(unit.客户名称);
    客户编号.setCaption("【客户编号】  " + unit.客户编号);
    层次.setCaption(unit.层次);
    装修.setCaption(unit.装修中 ? "正在装修中" : "");
    状态.setCaption(stateOf(unit));
    面板.setAnchor(&beside);
    面板.open();
}

}  // namespace desk
