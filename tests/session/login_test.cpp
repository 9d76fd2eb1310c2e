#include "session/login.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "base/failure.h"
#include "db/embedded/embedded.h"
#include "session/main_window.h"
#include "support/test_program.h"

namespace desk {
namespace {

/// The staff of one small office. The database in memory is made anew by every connection, so the rows are
/// put in as soon as the login has connected: by a look at the first statement's moment there is no way,
/// hence a file.
class Login : public testing::Test {
  protected:
    Login() {
        path_ = testing::TempDir() + "login_" + std::to_string(::getpid()) + "_" +
                testing::UnitTest::GetInstance()->current_test_info()->name() + ".db";
        std::remove(path_.c_str());
        embedded::createDatabase(path_);
        program.settings.keys["DBname"] = path_;
        Connection staff;
        staff.open("Initial Catalog='" + path_ + "';Data Source='(embedded)'", std::chrono::seconds(5));
        for (const auto* statement :
             {"Insert Into 职能部门类别 (部门类别代号,部门类别名称) Values ('A','业务')",
              "Insert Into 岗位类别 (岗位类别编号,岗位类别名称) Values ('P1','专员')",
              "Insert Into 职能部门new (职能部门编号,职能部门名称,职能部门类别代号) Values "
              "('01','招商部','A')",
              "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号,岗位类别代号) Values "
              "('0101','招商专员','01','P1'),('0102','招商经理 ','01','P1')",
              "Insert Into 员工档案 (工号,姓名,帐号密码) Values ('E01','林晓','one'),('E02','周平','two')",
              "Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('E01','0101',1),('E02','0101',1),"
              "('E02','0102',0)"})
            staff.execute(statement);
    }
    ~Login() override { std::remove(path_.c_str()); }

    FrmLogin& login() { return program.app.screens.get<FrmLogin>(); }
    void logIn(std::string_view user, std::string_view password) {
        login().TxtUser.type(user);
        login().txtPassword.type(password);
        login().cmdOK.click();
    }
    bool mainWindowIsUp() { return program.app.screens.loaded("MDIForm1") != nullptr; }

    TestProgram program;
    std::string path_;
};

/// The main window fails behind its menu: the rights of whoever was about to enter must not stay for the
/// next.
TEST_F(Login, TheNextUserGetsRightsOfHisOwnWhereTheMainWindowHasFailed) {
    Connection rights;
    rights.open("Initial Catalog='" + path_ + "';Data Source='(embedded)'", std::chrono::seconds(5));
    for (const auto* statement :
         {"Insert Into 岗位权限设置 (组代号,岗位代号,授权) Values ('G1','0101',1)",
          "Insert Into 岗位权限设置 (组代号,岗位代号,授权) Values ('G2','0102',1)",
          "Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('G1','人员设置',1,'引驻台账')",
          "Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('G2','引驻设置',1,'引驻台账')"})
        rights.execute(statement);
    program.app.start("");
    constexpr int specialRights = 4;  // behind staff, positions and menu
    program.fault = {specialRights, failure::unspecified};
    logIn("E01", "one");
    ASSERT_EQ(program.desktop.messages.size(), 1U);
    EXPECT_EQ(program.desktop.messages[0].title, "引驻台账");
    EXPECT_EQ(program.desktop.takeMessage(), "-2147467259 " + std::string(Fault::text));
    ASSERT_FALSE(mainWindowIsUp());

    logIn("E02", "two");
    ASSERT_TRUE(login().List1.visible());
    login().List1.doubleClick(1);
    ASSERT_TRUE(mainWindowIsUp());
    auto& main = program.app.screens.get<MDIForm1>();
    EXPECT_TRUE(main.entry("引驻设置")->enabled());
    EXPECT_FALSE(main.entry("人员设置")->enabled());
    EXPECT_EQ(main.状态栏.panel(0), "E02 周平");
}

/// Also where the first try was refused, since that one has opened the file already.
TEST_F(Login, TellsOnceThatTheFileHasBeenBroughtUp) {
    constexpr std::streamoff mark = 68;  // where the file's head says which program has made it
    std::fstream(path_, std::ios::in | std::ios::out | std::ios::binary).seekp(mark) << std::string(4, '\0');
    program.app.start("");
    logIn("E01", "wrong");
    logIn("E01", "one");
    ASSERT_EQ(program.desktop.notices.size(), 1U);
    EXPECT_NE(program.desktop.notices[0].find(path_ + ".v1.bak"), std::string::npos)
        << program.desktop.notices[0];
    std::remove((path_ + ".v1.bak").c_str());

    program.desktop.modalPerson = [this](Screen&) { logIn("E01", "one"); };
    program.app.screens.get<MDIForm1>().entry("注销")->click();
    EXPECT_EQ(program.desktop.notices.size(), 1U);
}

}  // namespace
}  // namespace desk
