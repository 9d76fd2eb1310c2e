#include "reference/personnel.h"

#include "session/helpers.h"

namespace desk {

Frm人员设置::Frm人员设置(Application& app)
    : Screen(screenName, "人员基础信息设置", WindowKind::child, 15600, 9000),
      app_(app),
      主职(*this, app, status_, 主职种类),
      组(*this, app, status_, 组种类),
      组管理处(组.框, app, 组.列表),
      人员(*this, app, status_),
      pages_(页签, status_, {{主职.框, 主职.列表}, {组.框, 组.列表}, {人员.Frame3, 人员.MSFlexGrid3}}) {
    组.列表.clicked += [this] { 组管理处.showCurrent(); };
    主职.written += [this] { 人员.fillDuties(主职.entries()); };
    组.written += [this] {
        组管理处.showCurrent();
        人员.fillTeams(组.entries());
    };
}

void Frm人员设置::load() {
    窗体居中(app_, *this);
    人员.fillDuties(主职.entries());
    主职.load();
    组.load();
    人员.fillTeams(组.entries());
    组管理处.load();
    pages_.showCurrent();
}

}  // namespace desk
