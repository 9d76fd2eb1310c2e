#include "session/about.h"

#include <fmt/format.h>

#include "platform/files.h"
#include "platform/settings.h"
#include "session/helpers.h"

namespace desk {

FrmAbout::FrmAbout(Application& app)
    : Screen(screenName, "关于 引驻台账", WindowKind::child, 6900, 3900), app_(app) {
    cmdOK.clicked += [this] { app_.screens.unload(*this); };
    cmdSysInfo.clicked += [this] { showSystem(); };
}

void FrmAbout::load() {
    窗体居中(app_, *this);
    lblVersion.setCaption(
        fmt::format("版本 {}.{}.{}", programVersion.major, programVersion.minor, programVersion.revision));
}

void FrmAbout::showSystem() {
    const auto setting = [this](std::string_view key) {
        return app_.platform.settings.read("鸿序楼台", "DBConfig", key, "");
    };
    app_.inform(
        fmt::format("数据库服务器：{}\r\n数据库：{}\r\n数据库版本：{}\r\n程序目录：{}", setting("Svr"),
                    setting("DBname"), app_.数据库版本, app_.platform.files.programDirectory()),
        "系统信息");
}

}  // namespace desk
