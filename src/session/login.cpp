#include "session/login.h"

#include <fmt/format.h>

#include "base/failure.h"
#include "base/text.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "platform/settings.h"
#include "session/main_connection.h"
#include "session/main_window.h"
#include "ui/batch.h"

namespace desk {

FrmLogin::FrmLogin(Application& app)
    : Screen(screenName, "鸿序楼台", WindowKind::dialog, 7500, 5400), app_(app) {
    withdrawChoice();

    TxtUser.focused += [this] {
        TxtUser.selectAll();
        // Going back to the staff number withdraws a pending choice of position.
        withdrawChoice();
    };
    txtPassword.focused += [this] { txtPassword.selectAll(); };
    cmdOK.clicked += [this] { logIn(); };
    cmdCancel.clicked += [this] { app_.desktop.endProcess(); };
    List1.doubleClicked += [this](int line) { choosePosition(line); };
}

void FrmLogin::load() {
    if (!app_.命令行参数.empty() && takeHandOff()) return;
    Label1.setCaption(fmt::format("V{}.{}版", programVersion.major, programVersion.minor));
}

void FrmLogin::closeAsked() {
    app_.desktop.endProcess();
}

bool FrmLogin::takeHandOff() {
    const auto tokens = split(app_.命令行参数, ',');
    std::size_t position = 0;
    for (std::string* field : app_.session.fields()) {
        if (position == tokens.size()) throw RuntimeFailure(failure::subscript, "下标越界");
        *field = tokens[position++];
    }
    if (!打开数据库()) return false;
    openMainWindow();
    app_.screens.unload(*this);
    return true;
}

bool FrmLogin::打开数据库() {
    const auto setting = [this](std::string_view key, std::string_view fallback) {
        return app_.platform.settings.read("鸿序楼台", "DBConfig", key, fallback);
    };
    app_.数据库版本 = setting("Edition", "2000");
    const auto Svr = setting("Svr", "");
    const auto UID = setting("UID", "");
    const auto PWD = setting("PWD", "");
    const auto DBname = setting("DBname", "");
    if (连接数据库(app_, UID, PWD, DBname, Svr)) return true;
    app_.inform("数据库连接失败!", "连接提示");
    return false;
}

void FrmLogin::logIn() {
    if (TxtUser.text().empty()) return app_.inform("用户名不能为空!");
    if (txtPassword.text().empty()) return app_.inform("密码不能为空!");
    try {
        clearSession();
        if (!打开数据库()) app_.desktop.endProcess();
        if (TxtUser.text() == "warden" && txtPassword.text() == "qUilt") {
            app_.session.登录工号 = SessionRecord::superUser;
            enterMainWindow();
        } else {
            checkStaff();
        }
    } catch (const RuntimeFailure& failure) {
        app_.inform(fmt::format("{} {}", failure.number(), failure.description()), 模块名);
    }
}

void FrmLogin::clearSession() {
    // The name is left: a super user who takes over shows the one before.
    const std::string name = app_.session.登录姓名;
    app_.session = {};
    app_.session.登录姓名 = name;
}

void FrmLogin::checkStaff() {
    if (!anyRow(app_.主连接, sql("Select * From 员工档案 Where 工号 ='{}' and 帐号密码='{}'", TxtUser.text(),
                                 trimmed(txtPassword.text()))))
        return app_.inform("用户名或密码不正确,请重新输入!");

    if (!readPositions()) return app_.tell("对不起，您没有岗位，请选择系统管理员");
    if (positions_.size() == 1) {
        List1.setSelected(0, true);
        return choosePosition(0);
    }
    offerChoice();
}

void FrmLogin::offerChoice() {
    for (Control* part :
         {static_cast<Control*>(&Label2), static_cast<Control*>(&List1), static_cast<Control*>(&选择提示)})
        part->setVisible(true);
    List1.setSelected(0, true);
    List1.focus();
}

void FrmLogin::withdrawChoice() {
    for (Control* part :
         {static_cast<Control*>(&Label2), static_cast<Control*>(&List1), static_cast<Control*>(&选择提示)})
        part->setVisible(false);
}

bool FrmLogin::readPositions() {
    Recordset rows(
        app_.主连接,
        sql("Select 员工档案.姓名,职能部门类别.部门类别代号,职能部门类别.部门类别名称,岗位类别.岗位类别编号,"
            "岗位类别名称, 职能部门new.职能部门编号 , 职能部门new.职能部门名称, 岗位信息new.岗位代号, "
            "岗位信息new.岗位名称, 岗位员工new.主要岗位 From 岗位员工new Inner joIn 岗位信息new on "
            "岗位员工new.岗位代号 = 岗位信息new.岗位代号 Inner joIn 职能部门new on 岗位信息new.职能部门代号 "
            "= "
            "职能部门new.职能部门编号 Inner joIn 岗位类别 on 岗位信息new.岗位类别代号 = "
            "岗位类别.岗位类别编号 "
            "Inner joIn 职能部门类别 on 职能部门new.职能部门类别代号 = 职能部门类别.部门类别代号 Inner joIn "
            "员工档案 on 岗位员工new.员工代号 = 员工档案.工号 Where 岗位员工new.员工代号='{}' and "
            "员工档案.离职日期 is null AND (岗位员工new.离岗日期 IS NULL)",
            TxtUser.text()));
    if (rows.atEnd()) return false;
    positions_.clear();
    const Refill fill(List1);
    for (auto& row : rows) {
        List1.addItem(fmt::format("{} {}({})", row["职能部门名称"].text(), row["岗位名称"].text(),
                                  row["主要岗位"].flag() ? "主要" : "兼职"));
        positions_.push_back({TxtUser.text(), row["姓名"].text(), row["职能部门编号"].text(),
                              row["职能部门名称"].text(), row["岗位代号"].text(), row["岗位名称"].text(),
                              row["部门类别代号"].text(), row["部门类别名称"].text(),
                              row["岗位类别编号"].text(), row["岗位类别名称"].text()});
    }
    return true;
}

void FrmLogin::choosePosition(int line) {
    app_.session = positions_.at(static_cast<std::size_t>(line));
    for (std::string* field : app_.session.fields()) *field = std::string(trimmed(*field));
    enterMainWindow();
}

void FrmLogin::enterMainWindow() {
    // After a log-off the main window stands already, and waits for this screen to go.
    if (tag.empty()) openMainWindow();
    app_.screens.unload(*this);
}

void FrmLogin::openMainWindow() {
    app_.screens.open(MDIForm1::screenName);
    // Only now is there a status bar that can tell it.
    if (const auto upgrade = app_.主连接.takeUpgrade()) app_.desktop.notify(upgrade->told());
}

}  // namespace desk
