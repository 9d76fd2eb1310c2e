#pragma once

#include "reference/coded_tab.h"
#include "reference/member_tab.h"
#include "reference/team_offices.h"

namespace desk {

/// The sales organisation: duties, teams with the offices that they serve, and members.
class Frm人员设置 : public Screen {
  public:
    static constexpr const char* screenName = "frm人员设置";

    explicit Frm人员设置(Application& app);
    void load() override;

    TabStrip 页签{*this, "页签", {"主职设置", "组设置", "人员设置"}};
    StatusBar 状态栏{*this, "状态栏", 2};

  private:
    Application& app_;
    SetupStatus status_{状态栏, SetupStatus::Order::titleFirst};

  public:
    CodedTab 主职;
    CodedTab 组;
    TeamOffices 组管理处;
    MemberTab 人员;

  private:
    SetupPages pages_;
};

}  // namespace desk
