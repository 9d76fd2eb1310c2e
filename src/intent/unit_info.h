#pragma once

#include "intent/unit_rows.h"
#include "ui/marker.h"
#include "ui/panel.h"

namespace desk {

/// What is known of one unit, beside the marker that stands for it.
class 房源信息 {
  public:
    explicit 房源信息(Screen& screen);

    void show(const 房源& unit, const Marker& beside);
    void close() { 面板.close(); }

    Panel 面板;
    Label 建筑面积;
    Label 客户;
    Label 客户编号;
    Label 层次;
    Label 装修;
    Label 状态;
    Button 关闭窗口;
};

}  // namespace desk
