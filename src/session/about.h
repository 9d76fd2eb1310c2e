#pragma once

#include "session/application.h"
#include "ui/fields.h"

namespace desk {

/// What program this is, in which version, on which system.
class FrmAbout : public Screen {
  public:
    static constexpr const char* screenName = "frmAbout";

    explicit FrmAbout(Application& app);
    void load() override;

    Label lblTitle{*this, "lblTitle", 模块名};
    Label lblVersion{*this, "lblVersion"};
    Label lblDescription{*this, "lblDescription", "鸿序楼台物业管理系统 · 招商引驻业务台账"};
    Button cmdOK{*this, "cmdOK", "确定", ButtonRole::main};
    Button cmdSysInfo{*this, "cmdSysInfo", "系统信息(&S)..."};

  private:
    void showSystem();

    Application& app_;
};

}  // namespace desk
