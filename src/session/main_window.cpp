#include "session/main_window.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "base/text.h"
#include "db/connection_string.h"
#include "db/recordset.h"
#include "db/statement.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "session/about.h"
#include "session/background.h"
#include "session/failure_report.h"
#include "session/helpers.h"
#include "session/login.h"

namespace desk {

namespace {

constexpr const char* separator = "-";
constexpr const char* makersPage = "https://www.example.com/hongxu/";

/// The database as its users know it: of a file the name, without the folders that it lies in.
std::string databaseName(const std::string& connectionString) {
    const ConnectionTarget target = parseConnectionString(connectionString);
    return target.initialCatalog.substr(target.initialCatalog.find_last_of("/\\") + 1);
}

/// Captions that privileges leave on unless a row of theirs turns them off.
bool alwaysOn(std::string_view caption) {
    static constexpr std::array<std::string_view, 8> captions = {"注销", "关于",     "关于软件", "联系我们",
                                                                 "退出", "退出系统", "其它模块", separator};
    return std::find(captions.begin(), captions.end(), caption) != captions.end();
}

}  // namespace

MDIForm1::MDIForm1(Application& app) : Screen(screenName, 模块名, WindowKind::main, 19200, 12000), app_(app) {
    addScreenMenu("引驻信息管理", {{"客户信息登记", "Frm引驻客户信息登记"},
                                   {separator, nullptr},
                                   {"客户跟进分配", "Frm客户跟进信息分配"},
                                   {"客户跟进管理", "frm客户跟进记录"}});
    addScreenMenu("意向客户管理", {{"意向客户登记", "frm意向书信息"},
                                   {"意向客户审批", "Frm意向书审批"},
                                   {"意向金收取", "frm意向金收取"}});
    addScreenMenu("统计报表", {{"来电统计分析", "frm每周来电统计分析"},
                               {"来客统计分析", "frm每周来客统计分析"},
                               {separator, nullptr},
                               {"跟进状态分析", "Frm客户跟进状态分析"},
                               {"客户分类统计", "frm客户分类统计"}});
    addScreenMenu("基础信息设置", {{"人员设置", "frm人员设置"},
                                   {"中介公司设置", "frm中介公司设置"},
                                   {separator, nullptr},
                                   {"客户设置", "frm客户相关信息设置"},
                                   {"引驻设置", "frm引驻设置"},
                                   {separator, nullptr},
                                   {"意向书审批流程设置", "frm意向书审批路径设置"}});
    addOwnMenus();
    Picture1.resized += [this] { paintBanner(); };
}

MenuEntry& MDIForm1::add(const char* caption, MenuEntry* parent) {
    return entries_.emplace_back(*this, caption, parent);
}

void MDIForm1::addScreenMenu(const char* top,
                             std::initializer_list<std::pair<const char*, const char*>> entries) {
    MenuEntry& menu = add(top);
    for (const auto& [caption, screen] : entries) {
        MenuEntry& entry = add(caption, &menu);
        if (screen != nullptr) openOnClick(entry, screen);
    }
}

void MDIForm1::openOnClick(MenuEntry& entry, const char* screen) {
    entry.tag = screen;
    entry.clicked += [this, &entry] { app_.screens.open(entry.tag); };
}

void MDIForm1::addOwnMenus() {
    add("其它模块").clicked += [this] { switchModule(); };
    MenuEntry& leaving = add("退出系统");
    add("退出", &leaving).clicked += [this] { app_.desktop.endProcess(); };
    add("注销", &leaving).clicked += [this] { logOff(); };
    MenuEntry& about = add("关于");
    openOnClick(add("关于我们", &about), FrmAbout::screenName);
    add("联系我们", &about).clicked += [this] { contactUs(); };
}

void MDIForm1::load() {
    if (!app_.session.isSuperUser()) 权限设置(模块名);
    读取专项审核权限(app_);
    showSession();
    if (Screen* login = app_.screens.loaded(FrmLogin::screenName)) app_.screens.unload(*login);
}

void MDIForm1::unload() {
    app_.desktop.endProcess();
}

MenuEntry* MDIForm1::entry(std::string_view caption) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const MenuEntry& entry) { return entry.caption() == caption; });
    return found == entries_.end() ? nullptr : &*found;
}

void MDIForm1::权限设置(const std::string& 模块) {
    try {
        for (MenuEntry& entry : entries_)
            if (!alwaysOn(entry.caption())) entry.setEnabled(false);

        Recordset rows(
            app_.主连接,
            sql("SELECT DISTINCT 岗位权限设置.ID , 岗位权限设置.组代号, 岗位权限设置.岗位代号, "
                "岗位权限设置.授权, GroupPrivilege.FormName, GroupPrivilege.Popedom FROM  岗位权限设置 "
                "INNER JOIN GroupPrivilege ON 岗位权限设置.组代号 = GroupPrivilege.GroupID Where 授权 = 1 "
                "AND 岗位代号='{}' AND memo='{}' ORDER BY GroupPrivilege.Popedom",
                app_.session.登录岗位代号, 模块));
        std::vector<std::pair<std::string, bool>> privileges;
        for (auto& row : rows) privileges.emplace_back(row["FormName"].text(), row["Popedom"].flag());
        // Refusals come first, so that a grant in any one group wins.
        for (const auto& [caption, granted] : privileges)
            if (MenuEntry* named = entry(caption)) named->setEnabled(granted);
    } catch (const RuntimeFailure& failure) {
        reportFailure(app_, failure);
    }
}

void MDIForm1::showSession() {
    const SessionRecord& session = app_.session;
    // The super user keeps the name of whoever was there before.
    const bool named = !session.isSuperUser();
    状态栏.setPanel(0, named ? session.登录工号 + " " + session.登录姓名 : session.登录工号);
    状态栏.setPanel(1, named ? session.登录部门名称 + " " + session.登录岗位名称 : std::string());
    状态栏.setPanel(2, databaseName(app_.连接字符串));
}

void MDIForm1::switchModule() {
    if (app_.命令行参数.empty()) return app_.tell("对不起，您不属于多模块系统。");
    app_.platform.programs.activate("鸿序楼台");
}

void MDIForm1::logOff() {
    while (Screen* child = app_.screens.activeChild()) app_.screens.unload(*child);
    if (!app_.命令行参数.empty()) return leaveMultiModule();

    auto& login = app_.screens.get<FrmLogin>();
    login.withdrawChoice();
    login.tag = "切换";
    login.txtPassword.setText("");
    窗体居中(app_, login);
    app_.desktop.showModally(login);
    // Also for the super user, who so keeps only what is always on: it was meant so.
    权限设置(模块名);
    showSession();
}

void MDIForm1::leaveMultiModule() {
    // The launcher reads one line in the code page of its own system.
    app_.platform.files.write(app_.platform.files.programDirectory() + "/Command.Dll",
                              toGbk("注销") + "\r\n");
    app_.platform.programs.activate("鸿序楼台 zhuxiao");
}

void MDIForm1::contactUs() {
    auto& programs = app_.platform.programs;
    if (programs.start("c:\\program Files\\Internet Explorer\\IEXPLORE.EXE", {makersPage})) return;
    if (!programs.openForUser(makersPage))
        app_.inform(fmt::format("没有可用的浏览器，请访问 {}", makersPage));
}

void MDIForm1::resize() {
    setBackground({});
    // The background is decoration: whatever goes wrong with it, the window goes on without.
    try {
        app_.screens.activated(app_.screens.get(Frmtu::screenName));
    } catch (const RuntimeFailure&) {
    }
}

void MDIForm1::setBackground(Picture picture) {
    background_ = std::move(picture);
    backgroundChanged();
}

void MDIForm1::paintBanner() {
    constexpr int twipsPerPixel = 15;
    constexpr int stripeAt = 8850;
    constexpr int stripe = 300;
    constexpr int rightEnd = 4000;
    if (!banner_) banner_ = app_.desktop.loadPicture(":/banner.png").value_or(Picture());

    const auto pixels = [](double twips) { return static_cast<int>(twips / twipsPerPixel); };
    const double W = Picture1.width();
    Picture drawn(pixels(W), pixels(Picture1.height()), Picture1.background);
    const auto copy = [&](double sourceX, double width, double x) {
        drawn.copy(*banner_, pixels(sourceX), 0, pixels(width), drawn.height, pixels(x), 0);
    };
    copy(0, banner_->width * twipsPerPixel, 0);
    for (int i = 1; i <= 10000; ++i) {
        const double x = stripeAt + i * stripe;
        if (W - rightEnd <= x) break;
        copy(stripeAt, stripe, x);
    }
    copy(stripeAt, rightEnd, W - rightEnd);
    Picture1.picture().stretch(drawn);
    Picture1.repaint();
}

}  // namespace desk
